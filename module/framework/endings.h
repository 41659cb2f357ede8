// What must be done after an action that may throw, where no destructor can do it because it may throw
// itself.
#pragma once

namespace goods {

// Does the action; when it throws, failed is called before the exception goes on.
template <typename Action, typename Failed>
void OnFailure(Action&& action, Failed&& failed) {
  try {
    action();
  } catch (...) {
    failed();
    throw;
  }
}

// Does the action and then the end, also when the action throws. What the end throws goes on instead.
template <typename Action, typename End>
void WithEnd(Action&& action, End&& end) {
  OnFailure(action, end);
  end();
}

}  // namespace goods
