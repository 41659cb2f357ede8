// Texts that more than one window says.
#pragma once

#include <string_view>

namespace goods {

inline constexpr std::string_view kPreparingReport = "سیستم در حال تهیه گزارش می باشد.";
inline constexpr std::string_view kFetchingData = "سیستم در حال فراخوانی اطلاعات می باشد";
inline constexpr std::string_view kAppliedFilters = "فیلترهای اعمال شده :: ";
inline constexpr std::string_view kNotPosted = "غیرثبتی بودن آن";

}  // namespace goods
