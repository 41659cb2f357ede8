// Small things that report windows do alike.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "goods_reports.h"
#include "host/base/base_dock.h"
#include "host/components/form.h"
#include "host/components/standard.h"
#include "host/frames/general_search_frame.h"
#include "host/frames/range_date_search_frame.h"
#include "host/frames/range_digit_search_frame.h"
#include "host/frames/select_entity_search_frame.h"
#include "module/framework/criteria_text.h"

namespace goods {

// The window shows that report: its component software part, its help page, the part whose right printing
// asks for.
void DescribeWindow(TBaseDock_FRM& window, const ReportDescription& report);
// The same by the window's name; of a window with several reports the first in the table.
void DescribeWindow(TBaseDock_FRM& window);

// What is being typed in the window counts from now on, as if the focus had left the edit.
void AcceptTyping(TForm& window);

// The frame's entity as a criterion, while its box is ticked and its code above 0.
CriteriaCode CodeOf(const TSelectEntity_Search_Frame& frame);
// A frame's range as a criterion.
CriteriaRange RangeOf(const TRange_Digit_Search_Frame& frame);
CriteriaRange RangeOf(const TRange_Date_Search_Frame& frame);

// The key clicks the button and goes no further.
void Press(TKey& key, TButton& button);

// The line above a printed list that tells its criteria; none without criteria.
void AddFilterLine(std::vector<std::string>& lines, const std::string& filter);

// Tells beside the button that many columns may not find room on a printed page. width is in pixels at
// 96 dpi, 0 for the host's own.
void ShowPrintWarning(THost& host, const TControl& button, int width);

}  // namespace goods
