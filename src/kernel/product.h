#pragma once
// Facts about the product itself, defined once.

namespace quillet::kernel {

// Where users send the error reports that the Immediate window collects.
inline constexpr const wchar_t* kSupportAddress = L"support@quillet.example";
// The product's web site; the Help menu's web entries add their paths to it.
inline constexpr const wchar_t* kWebSite = L"https://www.quillet.example";
// The application name of the per-user store.
inline constexpr const wchar_t* kAppName = L"Quillet";

}  // namespace quillet::kernel
