#include "DocumentsTest.h"
#include "HeapWatch.h"

#include <ostream>

namespace fake = klx::fake;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

std::string repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

std::string withEntities(const std::string& declarations, const std::string& elements) {
    return "<!DOCTYPE rm_as [" + declarations + "]><rm_as><deviceInfo>" + elements +
           "</deviceInfo></rm_as>";
}

/** Ten entities, each ten times the one before: the last is of ten thousand million characters. */
std::string laughs() {
    std::string declarations = "<!ENTITY l0 \"lollollollol\">";
    for (int i = 1; i < 10; ++i) {
        declarations += "<!ENTITY l" + std::to_string(i) + " \"" +
                        repeated("&l" + std::to_string(i - 1) + ";", 10) + "\">";
    }
    return declarations;
}

/** One entity of a hundred thousand characters. */
std::string longEntity() {
    return "<!ENTITY a \"" + std::string(100000, 'A') + "\">";
}

const std::string references = repeated("&a;", 5000);
const std::string soundMenu = xmlMenu("Sound", xmlProperty("Mute", "1"));

struct Bomb {
    const char* name;
    std::string document;
    bool isRefused = true; ///< Else it grows where nobody reads.
};

void PrintTo(const Bomb& bomb, std::ostream* out) {
    *out << bomb.name;
}

/** Small documents that grow beyond measure when their entities are put in. */
class EntityBombTest : public DocumentsTest, public ::testing::WithParamInterface<Bomb> {
protected:
    EntityBombTest() {
        records.add("/Sound/Mute").add("/Sound/Bomb");
        // What the test keeps would be counted as the library's memory.
        scene.onCall("__dlog_print", &fake::clearHistory);
        std::get<setterElement>(DeviceInfoManagerSeam::records()["/Sound/Bomb"]) = nullptr;
    }
};

TEST_P(EntityBombTest, TakesLittleMemory) {
    const HeapWatch watch(128 * mebibyte);
    EXPECT_EQ(restore(GetParam().document, xml), !GetParam().isRefused);
    EXPECT_LT(watch.peak(), 64 * mebibyte);
    EXPECT_TRUE(!GetParam().isRefused || records.applied().empty());
}

INSTANTIATE_TEST_SUITE_P(
    Bombs, EntityBombTest,
    ::testing::Values(
        Bomb{"LaughsInText", withEntities(laughs(), soundMenu + "&l9;")},
        Bomb{"LaughsInAValue",
             withEntities(laughs(), xmlMenu("Sound", xmlProperty("Bomb", "&l9;")))},
        Bomb{"LaughsInAName", withEntities(laughs(), xmlMenu("&l9;", ""))},
        Bomb{"LaughsInADefault", withEntities(laughs() + "<!ATTLIST property value CDATA \"&l9;\">",
                                              xmlMenu("Sound", "<property name=\"Bomb\"/>"))},
        Bomb{"LaughsInParameterEntities",
             withEntities("<!ENTITY % p0 \"lollollollol\">"
                          "<!ENTITY % p1 \"&#37;p0;&#37;p0;&#37;p0;&#37;p0;\">%p1;",
                          soundMenu)},
        Bomb{"EntityOfItself", withEntities("<!ENTITY a \"&a;\">", soundMenu + "&a;")},
        Bomb{"EntityOfItselfInAValue", withEntities("<!ENTITY a \"&b;\"><!ENTITY b \"&a;\">",
                                                    xmlMenu("Sound", xmlProperty("Bomb", "&a;")))},
        Bomb{"QuadraticInText", withEntities(longEntity(), soundMenu + references), false},
        Bomb{"QuadraticInAValue",
             withEntities(longEntity(), xmlMenu("Sound", xmlProperty("Bomb", references)))},
        Bomb{"QuadraticInAName", withEntities(longEntity(), xmlMenu(references, ""))},
        Bomb{"QuadraticInAnUnreadAttribute",
             withEntities(longEntity(), "<menu name=\"Sound\" other=\"" + references + "\"/>")},
        Bomb{"QuadraticInManyValues",
             withEntities(longEntity(),
                          xmlMenu("Sound",
                                  repeated(xmlProperty("Bomb", repeated("&a;", 50)), 100)))},
        Bomb{"QuadraticInADefault",
             withEntities(longEntity() + "<!ATTLIST property value CDATA \"" + references + "\">",
                          xmlMenu("Sound", "<property name=\"Bomb\"/>")),
             false}),
    [](const auto& test) { return test.param.name; });

class EntityTest : public DocumentsTest {
protected:
    EntityTest() { records.add("/Sound/Mute").add("/Sound/Bomb"); }
};

TEST_F(EntityTest, LaughsAreRefusedBeforeAnythingIsApplied) {
    EXPECT_FALSE(restore(withEntities(laughs(), soundMenu + "&l9;"), xml));
    EXPECT_FALSE(restore(
        withEntities(laughs(), soundMenu + xmlMenu("Sound", xmlProperty("Bomb", "&l9;"))), xml));
    EXPECT_THAT(records.applied(), IsEmpty());
}

TEST_F(EntityTest, GrowthBeyondMeasureIsRefusedBeforeAnythingIsApplied) {
    const std::string growing = xmlMenu("Sound", xmlProperty("Bomb", references));
    EXPECT_FALSE(restore(withEntities(longEntity(), soundMenu + growing), xml));
    EXPECT_THAT(records.applied(), IsEmpty());
}

TEST_F(EntityTest, IsPutIntoAValue) {
    const std::string value = xmlMenu("Sound", xmlProperty("Mute", "a&e;z"));
    EXPECT_TRUE(restore(withEntities("<!ENTITY e 'm&#110;'>", value), xml));
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = amnz"));
}

TEST_F(EntityTest, ElementsOfAnEntityAreNotApplied) {
    EXPECT_TRUE(restore(withEntities("<!ENTITY a '" + soundMenu + "'>", "&a;"), xml));
    EXPECT_THAT(records.applied(), IsEmpty());
}

} // namespace
