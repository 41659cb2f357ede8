// The pictures of saved views.
#pragma once

#include "desktop/tools/picture_scenes_reports.h"

namespace goods {

void PictureViews(const ReportScenes& scenes, const QString& companyTitle, DesktopSettings& settings,
                  std::int64_t good);

}  // namespace goods
