#include "company/system/terminal.h"

namespace goods {

TerminalError::~TerminalError() = default;

}  // namespace goods
