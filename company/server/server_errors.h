// What a server's failure is called before the user.
#pragma once

#include <string>

namespace goods {

class OdbcError;

// In the user's language what happened, where that is known, and in the next line the server's own words.
std::string UserMessage(const OdbcError& error);

}  // namespace goods
