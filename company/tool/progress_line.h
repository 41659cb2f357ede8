// How far a long work is, on the error output, and stopping it with Ctrl+C.
#pragma once

#include "company/writer/work_progress.h"

namespace goods {

// On a terminal a line that is drawn anew: stage, bar, rows, share, remaining time. Elsewhere a line every
// few seconds. From the first call on Ctrl+C (and SIGTERM) asks the work to stop; the second one ends the
// program as usual. silent: nothing is shown, but stopping works.
WorkWatcher MakeProgressLine(bool silent);

// Puts an end to the line, where there is one, before anything else is written.
void EndProgressLine();

}  // namespace goods
