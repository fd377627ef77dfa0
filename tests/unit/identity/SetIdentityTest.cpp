#include "IdentityTest.h"

#include <climits>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr const char* uniqueId = "db/comss/hwduid";
constexpr int esnBuffer = 16384;

using UniqueIdTest = IdentityTest;

TEST_F(UniqueIdTest, IsTheStoredText) {
    scene.store(uniqueId, "BDCM5RN4");
    EXPECT_EQ(device.getDUID(), "BDCM5RN4");
    EXPECT_THAT(fake::history(), ElementsAre("vconf_get_str(\"db/comss/hwduid\")"));
}

TEST_F(UniqueIdTest, MayBeEmpty) {
    scene.store(uniqueId, "");
    EXPECT_EQ(device.getDUID(), "");
    EXPECT_THAT(fake::logs(), IsEmpty());
}

TEST_F(UniqueIdTest, FailureIsLoggedUnderAnotherFunctionAndFile) {
    EXPECT_EQ(device.getDUID(), "");
    EXPECT_THAT(fake::logs(), ElementsAre(fake::LineIn("commonUtil.h", 5, "getOpenApiDUID",
                                                       "Failed getting DUID")));
}

class EsnTest : public IdentityTest {
protected:
    void expectFailure(const std::string& message) {
        EXPECT_EQ(device.getnESN(), "");
        EXPECT_THAT(fake::logs(), ElementsAre(generalLine(5, "getnESN", message)));
    }
};

TEST_F(EsnTest, IsWhatTheServiceWrote) {
    scene.esn("NFANDROID2-PRV");
    EXPECT_EQ(device.getnESN(), "NFANDROID2-PRV");
    EXPECT_THAT(fake::history(), ElementsAre("esn_get(16384)"));
}

TEST_F(EsnTest, IsCutAtTheReturnedLength) {
    scene.esn("NFANDROID2-PRV", 4);
    EXPECT_EQ(device.getnESN(), "NFAN");
}

TEST_F(EsnTest, KeepsZeroBytes) {
    const std::string bytes("A\0B\0", 4);
    scene.esn(bytes);
    EXPECT_EQ(device.getnESN(), bytes);
}

TEST_F(EsnTest, BytesThatTheServiceDidNotWriteAreZero) {
    scene.esn("NFA", 6);
    EXPECT_EQ(device.getnESN(), std::string("NFA\0\0\0", 6));
}

TEST_F(EsnTest, MayFillTheBuffer) {
    const std::string bytes(esnBuffer, 'x');
    scene.esn(bytes);
    EXPECT_EQ(device.getnESN(), bytes);
}

TEST_F(EsnTest, LengthAboveTheBufferIsCutToIt) {
    const std::string bytes(esnBuffer, 'x');
    for (const int claimed : {esnBuffer + 1, 1000000, INT_MAX}) {
        scene.esn(bytes, claimed);
        EXPECT_EQ(device.getnESN(), bytes) << claimed;
    }
}

TEST_F(EsnTest, NoLengthIsAFailure) {
    scene.esn("NFANDROID2-PRV", 0);
    expectFailure("FAILURE while to retrieving ESN");
}

TEST_F(EsnTest, NegativeLengthIsAFailure) {
    scene.esn("NFANDROID2-PRV", -1);
    expectFailure("FAILURE while to retrieving ESN");
}

TEST_F(EsnTest, FailedCallIsLogged) {
    scene.esn("NFANDROID2-PRV").answer("esn_get", 17);
    expectFailure("FAILURE while getting ESN");
}

class ProductTest : public IdentityTest {
protected:
    void storeYear(int year) { scene.feature("com.velmora/featureconf/product.tv_year", year); }
};

TEST_F(ProductTest, TypeIsANumber) {
    scene.feature("com.velmora/featureconf/product.product_type", 3);
    EXPECT_EQ(device.getProductType(), "3");
    EXPECT_THAT(fake::history(), ElementsAre("system_info_get_custom_int(\"com.velmora/"
                                             "featureconf/product.product_type\")"));
}

TEST_F(ProductTest, UnknownTypeIsLogged) {
    EXPECT_EQ(device.getProductType(), "");
    EXPECT_THAT(fake::logs(), ElementsAre(generalLine(5, "getProductType",
                                                      "FAILURE while getting product type")));
}

TEST_F(ProductTest, YearOfTwoDigitsIsOfThisCentury) {
    storeYear(21);
    EXPECT_EQ(device.getProductYear(), "2021");
    EXPECT_THAT(fake::history(), ElementsAre("system_info_get_custom_int(\"com.velmora/"
                                             "featureconf/product.tv_year\")"));
}

TEST_F(ProductTest, YearsUpTo99AreOfThisCentury) {
    storeYear(99);
    EXPECT_EQ(device.getProductYear(), "2099");
    storeYear(0);
    EXPECT_EQ(device.getProductYear(), "2000");
    storeYear(-1);
    EXPECT_EQ(device.getProductYear(), "1999");
}

TEST_F(ProductTest, YearsFrom100AreTakenAsTheyAre) {
    storeYear(100);
    EXPECT_EQ(device.getProductYear(), "100");
    storeYear(2024);
    EXPECT_EQ(device.getProductYear(), "2024");
}

TEST_F(ProductTest, UnknownYearIsLogged) {
    storeYear(21);
    scene.fail("system_info_get_custom_int", 17);
    EXPECT_EQ(device.getProductYear(), "");
    EXPECT_THAT(fake::logs(),
                ElementsAre(generalLine(5, "getProductYear", "Fail to get product year")));
}

class PurchaseTest : public IdentityTest {
protected:
    void expectFailure(const std::string& message) {
        EXPECT_EQ(device.getDateOfPurchase(), "");
        EXPECT_THAT(fake::logs(), ElementsAre(generalLine(5, "getDateOfPurchase", message)));
    }
};

TEST_F(PurchaseTest, DateIsTheSettingsText) {
    scene.systemSetting(10001, "2024-02-29");
    EXPECT_EQ(device.getDateOfPurchase(), "2024-02-29");
    EXPECT_THAT(fake::history(), ElementsAre("system_settings_get_value_string(10001)"));
}

TEST_F(PurchaseTest, FailedCallIsLogged) {
    expectFailure("FAILURE");
}

TEST_F(PurchaseTest, TextOfAFailedCallIsFreedAndNotUsed) {
    scene.systemSetting(10001, "2024-02-29").answer("system_settings_get_value_string", 17);
    expectFailure("FAILURE");
}

TEST_F(PurchaseTest, NullTextIsLogged) {
    scene.systemSetting(10001, nullptr);
    expectFailure("Do not get date of purchase");
}

} // namespace
