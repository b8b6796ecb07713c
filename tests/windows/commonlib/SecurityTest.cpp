#include <windows.h>

#include <aclapi.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sddl.h>

#include <string>

#include "CommonLib/InterProcessLock.h"
#include "CommonLib/Security.h"
#include "CommonLib/SecurityEveryone.h"
#include "CommonLib/Win32Exception.h"
#include "framework/Handles.h"

namespace {

// The access list of an object in the system's own notation.
std::wstring AccessListOf(HANDLE object, SE_OBJECT_TYPE type) {
    LocalMemory descriptor;
    PSECURITY_DESCRIPTOR found = nullptr;
    if (GetSecurityInfo(object, type, DACL_SECURITY_INFORMATION, nullptr, nullptr, nullptr, nullptr,
                        &found) != ERROR_SUCCESS) {
        return L"none";
    }
    descriptor.reset(found);
    wchar_t* text = nullptr;
    ConvertSecurityDescriptorToStringSecurityDescriptorW(found, SDDL_REVISION_1, DACL_SECURITY_INFORMATION,
                                                         &text, nullptr);
    const LocalMemory owner(text);
    return text == nullptr ? L"none" : text;
}

// The mask reads back as it was given or as what it means for a mutex.
testing::Matcher<std::wstring> GrantsEveryoneAlone() {
    return testing::AnyOf(L"D:(A;;GA;;;WD)", L"D:(A;;0x1f0001;;;WD)");
}

// Attributes whose descriptor is none.
class SecurityWithoutDescriptor : public Security {
public:
    SecurityWithoutDescriptor() { attributes.lpSecurityDescriptor = zeroes; }

private:
    unsigned char zeroes[SECURITY_DESCRIPTOR_MIN_LENGTH] = {};
};

TEST(SecurityEveryoneTest, GivesAttributesThatAreInherited) {
    SecurityEveryone everyone;
    EXPECT_EQ(everyone.getAttributes()->nLength, sizeof(SECURITY_ATTRIBUTES));
    EXPECT_EQ(everyone.getAttributes()->bInheritHandle, TRUE);
    EXPECT_TRUE(IsValidSecurityDescriptor(everyone.getAttributes()->lpSecurityDescriptor));
}

TEST(SecurityEveryoneTest, GrantsEveryoneAndNobodyElse) {
    SecurityEveryone everyone;
    const KernelHandle mutex(CreateMutexW(everyone.getAttributes(), FALSE, nullptr));
    EXPECT_THAT(AccessListOf(mutex.get(), SE_KERNEL_OBJECT), GrantsEveryoneAlone());
}

TEST(SecurityEveryoneTest, MayGoOnceTheObjectIsMade) {
    KernelHandle mutex;
    {
        SecurityEveryone everyone;
        mutex.reset(CreateMutexW(everyone.getAttributes(), FALSE, nullptr));
    }
    EXPECT_THAT(AccessListOf(mutex.get(), SE_KERNEL_OBJECT), GrantsEveryoneAlone());
}

TEST(InterProcessLockAccessTest, GrantsEveryoneAndNobodyElse) {
    constexpr wchar_t name[] = L"Kestrune Test Lock Access";
    const InterProcessLock lock(name);
    const KernelHandle mutex(OpenMutexW(READ_CONTROL, FALSE, name));
    EXPECT_THAT(AccessListOf(mutex.get(), SE_KERNEL_OBJECT), GrantsEveryoneAlone());
}

TEST(SecurityTest, HasNoDescriptorOfItsOwn) {
    Security security;
    EXPECT_EQ(security.getAttributes()->lpSecurityDescriptor, nullptr);
    EXPECT_EQ(security.getAttributes()->bInheritHandle, TRUE);
}

TEST(SecurityTest, PutsItsListOnAnExistingObject) {
    const KernelHandle mutex(CreateMutexW(nullptr, FALSE, nullptr));
    SecurityEveryone().doApply(mutex.get());
    EXPECT_NE(AccessListOf(mutex.get(), SE_KERNEL_OBJECT).find(L";;;WD)"), std::wstring::npos);
}

TEST(SecurityTest, TellsOfAnObjectThatIsNone) {
    try {
        SecurityEveryone().doApply(HANDLE{nullptr});
        FAIL() << "no exception";
    } catch (const Win32Exception& exception) {
        EXPECT_EQ(exception.getMessage(), L"Security::doApply() SetKernelObjectSecurity failed ");
        EXPECT_EQ(exception.getCode(), ERROR_INVALID_HANDLE);
    }
}

TEST(SecurityTest, PutsItsListOnARegistryKey) {
    const wchar_t path[] = L"SOFTWARE\\Kestrune Test Security";
    RegistryKey key;
    ASSERT_EQ(
        RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, key.put(), nullptr),
        ERROR_SUCCESS);
    EXPECT_NO_THROW(SecurityEveryone().doApply(key.get()));
    EXPECT_NE(AccessListOf(key.get(), SE_REGISTRY_KEY).find(L";;;WD)"), std::wstring::npos);
    key.reset();
    RegDeleteKeyW(HKEY_CURRENT_USER, path);
}

TEST(SecurityTest, TellsOfADescriptorThatIsNone) {
    try {
        SecurityWithoutDescriptor().doApply(HKEY_CURRENT_USER);
        FAIL() << "no exception";
    } catch (const Win32Exception& exception) {
        EXPECT_EQ(exception.getMessage(), L"Security::doApply() GetSecurityDescriptorDacl failed ");
        EXPECT_EQ(exception.getCode(), ERROR_UNKNOWN_REVISION);
    }
}

TEST(SecurityTest, TellsOfARegistryKeyThatIsNone) {
    try {
        SecurityEveryone().doApply(HKEY{nullptr});
        FAIL() << "no exception";
    } catch (const Win32Exception& exception) {
        EXPECT_EQ(exception.getMessage(), L"Security::doApply() SetSecurityInfo failed ");
        EXPECT_NE(exception.getCode(), 0);
    }
}

}  // namespace
