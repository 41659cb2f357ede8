// Paints the pages of a layout, on paper, into a PDF or on the screen.
#pragma once

#include "desktop/print/page_layout.h"

class QPainter;
class QPrinter;

namespace goods {

// The painter must be scaled so that one unit is a point, with the origin at the paper's corner. page is
// below the number of pages.
void PaintPage(QPainter& painter, const PageLayout& layout, std::size_t page);

}  // namespace goods
