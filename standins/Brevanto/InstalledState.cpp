#include "standins/Brevanto/InstalledState.h"

#include <windows.h>

#include <msi.h>

#include <algorithm>

namespace brevanto {
namespace {

constexpr DWORD productCodeLength = 38;

bool IsSameCode(const std::wstring& left, const std::wstring& right) {
    return _wcsicmp(left.c_str(), right.c_str()) == 0;
}

std::wstring InstalledVersion(const std::wstring& productCode) {
    DWORD length = 0;
    wchar_t none[] = L"";
    if (MsiGetProductInfoW(productCode.c_str(), INSTALLPROPERTY_VERSIONSTRING, none, &length) !=
        ERROR_MORE_DATA) {
        return {};
    }
    std::wstring text(length, L'\0');
    ++length;
    if (MsiGetProductInfoW(productCode.c_str(), INSTALLPROPERTY_VERSIONSTRING, text.data(), &length) !=
        ERROR_SUCCESS) {
        return {};
    }
    text.resize(length);
    return text;
}

// A product that is only advertised has no files on the system and does not count.
void AppendIfInstalled(const std::wstring& productCode, std::vector<InstalledProduct>& products) {
    if (MsiQueryProductStateW(productCode.c_str()) != INSTALLSTATE_DEFAULT) return;
    products.push_back(
        {.productCode = productCode, .version = ParseProductVersion(InstalledVersion(productCode))});
}

std::vector<InstalledProduct> FindRelatedProducts(const PackageIdentity& package) {
    std::vector<InstalledProduct> products;
    AppendIfInstalled(package.productCode, products);
    wchar_t code[productCodeLength + 1] = {};
    for (DWORD index = 0;
         MsiEnumRelatedProductsW(package.upgradeCode.c_str(), 0, index, code) == ERROR_SUCCESS; ++index) {
        AppendIfInstalled(code, products);
    }
    return products;
}

}  // namespace

PackageIdentity IdentifyPackage(const std::vector<Property>& properties) {
    return {.productCode = PropertyValue(properties, L"ProductCode"),
            .upgradeCode = PropertyValue(properties, L"UpgradeCode"),
            .version = ParseProductVersion(PropertyValue(properties, L"ProductVersion"))};
}

InstalledState Judge(const PackageIdentity& package, const std::vector<InstalledProduct>& products) {
    if (products.empty()) return {};
    const auto isOwn = [&](const InstalledProduct& product) {
        return IsSameCode(product.productCode, package.productCode);
    };
    const auto own = std::ranges::find_if(products, isOwn);
    const auto newest = std::ranges::max_element(products, {}, &InstalledProduct::version);
    const InstalledProduct& product = own != products.end() ? *own : *newest;

    // A new version under the same product code is one that the installer refuses but for a reinstall.
    const bool upgradable = product.version < package.version;
    return {.installed = true,
            .upToDate = product.version == package.version,
            .upgradable = upgradable,
            .minorUpgrade = upgradable && own != products.end(),
            .productCode = product.productCode};
}

InstalledState FindInstalledState(const PackageIdentity& package) {
    return Judge(package, FindRelatedProducts(package));
}

}  // namespace brevanto
