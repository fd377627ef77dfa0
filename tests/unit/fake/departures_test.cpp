#include "FakeTest.h"
#include "SettingsService.h"
#include "connection.h"
#include "pelm.h"
#include "system_settings.h"
#include "vconf.h"

#include <atomic>
#include <stdexcept>
#include <thread>
#include <vector>

namespace klx {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class DeparturesTest : public FakeTest {};

TEST_F(DeparturesTest, AFailingReadLeavesTheOutputAlone) {
    scene.pelm("gamma", 3).fail("pelm_get_gamma", 22);
    int value = 7;
    EXPECT_EQ(pelm_get_gamma(1, &value, PELM_SAVE_STORED), 22);
    EXPECT_EQ(value, 7);
    EXPECT_THAT(fake::calls(), ElementsAre("pelm_get_gamma(1, 1)"));
}

TEST_F(DeparturesTest, OnlyTheNthCallFromNowOnFails) {
    vconf_set_str("k", "before");
    scene.failNth("vconf_set_str", 2, 5);
    EXPECT_EQ(vconf_set_str("k", "1"), 0);
    EXPECT_EQ(vconf_set_str("k", "2"), 5);
    EXPECT_EQ(vconf_set_str("k", "3"), 0);
}

TEST_F(DeparturesTest, AnAnswerComesWithTheWorkDone) {
    scene.systemSetting(10001, "2021").answer("system_settings_get_value_string", -1);
    int status = 0;
    const Text text = take(&status, [](char** out) {
        return system_settings_get_value_string(static_cast<system_settings_key_e>(10001), out);
    });
    EXPECT_EQ(status, -1);
    EXPECT_STREQ(text.get(), "2021");
}

TEST_F(DeparturesTest, AFailingReleaseReleasesAllTheSame) {
    scene.fail("connection_destroy", -7);
    connection_h connection = nullptr;
    connection_create(&connection);
    EXPECT_EQ(connection_destroy(connection), -7);
    EXPECT_THAT(fake::openHandles(), IsEmpty());
}

TEST_F(DeparturesTest, AnyTypeCanBeThrownAfterTheCallWasRecorded) {
    scene.throwFrom("vconf_get_int", std::out_of_range("far")).throwFrom("vconf_get_bool", 42);
    int value = 0;
    EXPECT_THROW(vconf_get_int("k", &value), std::out_of_range);
    EXPECT_THROW(vconf_get_bool("k", &value), int);
    EXPECT_THAT(fake::calls(), ElementsAre(R"(vconf_get_int("k"))", R"(vconf_get_bool("k"))"));
}

TEST_F(DeparturesTest, OperationsOfServicesThrowToo) {
    scene.throwFrom("SettingsService.SetItemValue", std::string("text"));
    EXPECT_THROW(SettingsService::Get()->SetItemValue("a", "b", true), std::string);
}

TEST_F(DeparturesTest, AnActionRunsBeforeTheAnswerIsWorkedOut) {
    scene.onCall("vconf_get_int", [this] { scene.store("k", 9); });
    int value = 0;
    EXPECT_EQ(vconf_get_int("k", &value), 0);
    EXPECT_EQ(value, 9);
}

TEST_F(DeparturesTest, AnActionMayCallThePlatformAndPlanItsOwnCall) {
    scene.onCall("vconf_set_int", [this] {
        vconf_set_bool("inner", 1);
        scene.fail("vconf_set_int", -8);
    });
    EXPECT_EQ(vconf_set_int("outer", 1), -8);
    EXPECT_THAT(fake::calls(),
                ElementsAre(R"(vconf_set_int("outer", 1))", R"(vconf_set_bool("inner", 1))"));
}

TEST_F(DeparturesTest, RestoreEndsEveryDeparture) {
    scene.fail("vconf_set_int", -1)
        .failNth("vconf_set_int", 1, -2)
        .answer("vconf_set_int", -3)
        .throwFrom("vconf_set_int", 1)
        .onCall("vconf_set_int", [] { throw 2; })
        .restore("vconf_set_int");
    EXPECT_EQ(vconf_set_int("k", 1), 0);
}

TEST_F(DeparturesTest, ANameThatDoesNotExistIsRefused) {
    EXPECT_THROW(scene.fail("vconf_get_itn", -1), std::invalid_argument);
    EXPECT_THROW(scene.failNth("vconf_get_itn", 1, -1), std::invalid_argument);
    EXPECT_THROW(scene.answer("vconf_get_itn", -1), std::invalid_argument);
    EXPECT_THROW(scene.throwFrom("vconf_get_itn", -1), std::invalid_argument);
    EXPECT_THROW(scene.onCall("vconf_get_itn", [] {}), std::invalid_argument);
    EXPECT_THROW(scene.restore("vconf_get_itn"), std::invalid_argument);
    EXPECT_THROW(fake::callsTo("vconf_get_itn"), std::invalid_argument);
    EXPECT_THROW(fake::Gate("vconf_get_itn"), std::invalid_argument);
}

TEST_F(DeparturesTest, CallsFromManyThreadsAreAllRecorded) {
    scene.failNth("vconf_set_int", 100, -5);
    std::vector<std::thread> threads;
    std::atomic<int> failures{0};
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int n = 0; n < 100; ++n) {
                failures += vconf_set_int("k", n) == 0 ? 0 : 1;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_THAT(fake::callsTo("vconf_set_int"), SizeIs(400));
    EXPECT_EQ(failures, 1);
}

} // namespace
} // namespace klx
