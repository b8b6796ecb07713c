#include <gtest/gtest.h>

#include "install/OutcomeList.h"

namespace {

MSI_APP WithStatus(const std::wstring& path, PackageStatus status) {
    MSI_APP record;
    record.msiPath = path;
    record.status = status;
    return record;
}

TEST(OutcomeListTest, HasOneRecordForEachKeyWithTheLaterStatus) {
    OutcomeList list;
    list.Note(L"same", WithStatus(L"a", PackageStatus::Done));
    list.Note(L"other", WithStatus(L"b", PackageStatus::Updated));
    list.Note(L"same", WithStatus(L"c", PackageStatus::Failed));
    ASSERT_EQ(list.Records().size(), 2U);
    EXPECT_EQ(list.Records()[0].msiPath, L"a");
    EXPECT_EQ(list.Records()[0].status, PackageStatus::Failed);
    EXPECT_EQ(list.Records()[1].msiPath, L"b");
    EXPECT_EQ(list.Records()[1].status, PackageStatus::Updated);
}

TEST(OutcomeListTest, BeginsAnewWhenItIsCleared) {
    OutcomeList list;
    list.Note(L"same", WithStatus(L"a", PackageStatus::Done));
    list.Clear();
    EXPECT_TRUE(list.Records().empty());
    list.Note(L"same", WithStatus(L"b", PackageStatus::Done));
    ASSERT_EQ(list.Records().size(), 1U);
    EXPECT_EQ(list.Records()[0].msiPath, L"b");
}

}  // namespace
