#include "tests/scripted/scripted_host.h"

namespace goods {

ScriptedHost::ScriptedHost() = default;
ScriptedHost::~ScriptedHost() = default;

}  // namespace goods
