#include "JsonText.h"

#include <json/value.h>
#include <json/writer.h>

std::string jsonText(const Json::Value& root) {
    Json::StreamWriterBuilder writer;
    writer["indentation"] = "  ";
    writer["emitUTF8"] = false;
    return Json::writeString(writer, root) + "\n";
}
