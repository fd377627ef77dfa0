#include "DiagnosticsText.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>

namespace {

Diagnostics busySet() {
    Diagnostics told;
    told.time = 1700000000; // 2023-11-14 22:13:20 UTC
    told.cpuPercent = 12;
    told.cpuTime = CPU_INFO{1, 2, 3, ULONG_MAX, 5, 6, 7};
    told.memoryUsed = 3328599654;
    told.storage = StorageUse{1000, 41446711091, 41446712091};
    return told;
}

} // namespace

TEST(DiagnosticsTable, AlignsFiguresUnderTheirNames) {
    setenv("TZ", "UTC", 1);
    EXPECT_EQ(tableHeader() + tableRow(busySet()),
              "TIME        CPU  MEMORY USED  STORAGE USED  STORAGE FREE  STORAGE TOTAL\n"
              "22:13:20   12 %      3.1 GiB       1.0 KiB      38.6 GiB       38.6 GiB\n");
}

TEST(DiagnosticsTable, ShowsAHyphenForAMissingFigure) {
    setenv("TZ", "UTC", 1);
    Diagnostics told;
    told.time = 1700000000;
    EXPECT_EQ(tableRow(told),
              "22:13:20      -            -             -             -              -\n");
}

TEST(DiagnosticsJson, IsOneLineWhenAskedFor) {
    EXPECT_EQ(jsonObject(busySet(), true),
              R"({"cpu":{"busyPercent":12,"ticks":{"idle":18446744073709551615,"iowait":5,)"
              R"("irq":6,"nice":2,"softirq":7,"system":3,"user":1}},)"
              R"("memory":{"usedBytes":3328599654},)"
              R"("storage":{"freeBytes":41446711091,"totalBytes":41446712091,"usedBytes":1000},)"
              R"("time":"2023-11-14T22:13:20Z"})"
              "\n");
}

TEST(DiagnosticsJson, IsNullForAMissingFigure) {
    Diagnostics told;
    told.time = 1700000000;
    EXPECT_EQ(jsonObject(told, true),
              R"({"cpu":{"busyPercent":null,"ticks":null},"memory":{"usedBytes":null},)"
              R"("storage":null,"time":"2023-11-14T22:13:20Z"})"
              "\n");
}

TEST(DiagnosticsJson, OfOneMeasureIsLaidOutForPeople) {
    EXPECT_NE(jsonObject(busySet(), false).find("\n  \"memory\""), std::string::npos);
}

TEST(Diagnostics, NamesWhatIsMissing) {
    EXPECT_EQ(missingFigures(busySet()), "");
    EXPECT_EQ(missingFigures(Diagnostics()), "CPU, memory and storage");
    Diagnostics told = busySet();
    told.cpuTime.reset();
    EXPECT_EQ(missingFigures(told), "CPU");
    told.storage.reset();
    EXPECT_EQ(missingFigures(told), "CPU and storage");
}

TEST(ReadableBytes, TakeTheUnitThatKeepsThemBelowAThousand) {
    EXPECT_EQ(readableBytes(0), "0 B");
    EXPECT_EQ(readableBytes(999), "999 B");
    EXPECT_EQ(readableBytes(1000), "1.0 KiB");
    EXPECT_EQ(readableBytes(1023948), "999.9 KiB");
    EXPECT_EQ(readableBytes(1023949), "1.0 MiB");
    EXPECT_EQ(readableBytes(LLONG_MAX), "8192.0 PiB");
    EXPECT_EQ(readableBytes(-2048), "-2.0 KiB");
}
