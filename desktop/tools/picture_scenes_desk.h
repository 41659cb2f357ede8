// Pictures of what every report window offers: periods, figures of a selection, paper, the way that led here.
#pragma once

#include "desktop/tools/picture_scenes_reports.h"

namespace goods {

// Opens windows and takes their pictures; good has movements of many kinds. Throws what fails on the way.
void PictureDesk(const ReportScenes& scenes, std::int64_t good);

}  // namespace goods
