#include <gtest/gtest.h>

#include "standins/Brevanto/PropertyDocument.h"

using brevanto::BuildPropertyDocument;
using brevanto::Property;
using brevanto::PropertyValue;

namespace {

const std::vector<Property> plainProperties = {{.name = L"ProductName", .value = L"Plain"},
                                               {.name = L"DRIVERNAME.1031", .value = L"Treiber"},
                                               {.name = L"ProductName.1031", .value = L"Schlicht"},
                                               {.name = L"ProductName.1036", .value = L"Simple"},
                                               {.name = L"DRIVERNAME", .value = L"Driver"}};

TEST(PropertyDocumentTest, HoldsTheRowsInOrderForALanguageWithoutVariants) {
    EXPECT_EQ(BuildPropertyDocument(plainProperties, L"1033"),
              L"<ProductName>Plain</ProductName><DRIVERNAME>Driver</DRIVERNAME>");
}

TEST(PropertyDocumentTest, PrefersTheVariantOfTheLanguageWhereverItStands) {
    EXPECT_EQ(BuildPropertyDocument(plainProperties, L"1031"),
              L"<ProductName>Schlicht</ProductName><DRIVERNAME>Treiber</DRIVERNAME>");
}

TEST(PropertyDocumentTest, LeavesOutAllVariantsForNoLanguage) {
    EXPECT_EQ(BuildPropertyDocument({{.name = L"A.1031", .value = L"1"}}, L""), L"");
}

TEST(PropertyDocumentTest, TakesANameWithAPointForWholeUnlessANumberFollows) {
    const std::vector<Property> properties = {{.name = L"A.b", .value = L"1"},
                                              {.name = L"A.", .value = L"2"},
                                              {.name = L".1", .value = L"3"},
                                              {.name = L"A.1x", .value = L"4"}};
    EXPECT_EQ(BuildPropertyDocument(properties, L"1"), L"<A.b>1</A.b><A.>2</A.><.1>3</.1><A.1x>4</A.1x>");
}

TEST(PropertyDocumentTest, KeepsValuesAsTheyAre) {
    EXPECT_EQ(BuildPropertyDocument({{.name = L"A", .value = L"<b> & \"c\""}}, L"1033"),
              L"<A><b> & \"c\"</A>");
}

TEST(PropertyDocumentTest, FindsAValueByItsWholeName) {
    EXPECT_EQ(PropertyValue(plainProperties, L"DRIVERNAME"), L"Driver");
    EXPECT_EQ(PropertyValue(plainProperties, L"drivername"), L"");
}

}  // namespace
