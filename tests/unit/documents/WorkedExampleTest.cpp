#include "DocumentsTest.h"
#include "SpecialPaths.h"

namespace {

std::string answerOff(const std::string&) {
    return "Off";
}

class WorkedExampleTest : public DocumentsTest {};

TEST_F(WorkedExampleTest, XmlDocument) {
    records.add("/Picture/Picture Mode", "Movie", std::string("Standard"));
    records.answering(
        hdrPlusMode, [](const std::string&) { return "On"; }, answerOff);
    EXPECT_EQ(dump({{"Picture", {"Picture Mode", "Expert Settings/HDR+ Mode"}}}, xml),
              R"(<?xml version="1.0" encoding="utf-8"?>
<rm_as version="2.5">
  <deviceInfo devicetype="TV">
    <menu name="Picture">
      <property name="Picture Mode" default="Standard" value="Movie"/>
      <property name="Expert Settings">
        <property name="HDR+ Mode" default="Off" value="On"/>
      </property>
    </menu>
  </deviceInfo>
</rm_as>
)");
}

TEST_F(WorkedExampleTest, JsonDocument) {
    records.add("/Picture/Picture Mode", "Movie", std::string("Standard"));
    records.add("/Input/Source_Connect/HDMI1", "1", std::string("0"));
    EXPECT_EQ(dump({{"Picture", {"Picture Mode"}}, {"Input", {"*"}}}, json),
              "{\n"
              "\t\"Input\" : \n"
              "\t{\n"
              "\t\t\"Source_Connect\" : \n"
              "\t\t{\n"
              "\t\t\t\"HDMI1\" : \n"
              "\t\t\t{\n"
              "\t\t\t\t\"Default\" : \"0\",\n"
              "\t\t\t\t\"Value\" : \"1\"\n"
              "\t\t\t}\n"
              "\t\t}\n"
              "\t},\n"
              "\t\"Picture\" : \n"
              "\t{\n"
              "\t\t\"Picture Mode\" : \n"
              "\t\t{\n"
              "\t\t\t\"Default\" : \"Standard\",\n"
              "\t\t\t\"Value\" : \"Movie\"\n"
              "\t\t}\n"
              "\t}\n"
              "}");
}

} // namespace
