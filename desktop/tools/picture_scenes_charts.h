// Pictures of the charts of the reports, and of two periods of one side by side.
#pragma once

#include "desktop/tools/picture_scenes_reports.h"

namespace goods {

// Opens the reports that have charts, of the stock card that of the good, and takes a picture of each chart
// and of a comparison. Throws what fails on the way.
void PictureCharts(const ReportScenes& scenes, std::int64_t good);

}  // namespace goods
