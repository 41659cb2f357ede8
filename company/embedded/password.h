// Passwords, kept as Argon2id hashes in the usual text form.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace goods {

using PasswordSalt = std::array<unsigned char, 16>;

// Throws CompanyError when memory is short.
std::string HashPassword(std::string_view password);
// With a given salt, for a company that must come out the same each time. Never for a user's own company.
std::string HashPassword(std::string_view password, const PasswordSalt& salt);
// A salt made from a text; equal texts, equal salts.
PasswordSalt SaltFrom(std::string_view text);

// False as well for a hash that is no Argon2id hash, or one that would cost more than 64 MB and four passes
// to check; that costs what VerifyNothing does.
bool VerifyPassword(std::string_view password, const std::string& hash);
// False, after the work of VerifyPassword: what an unknown login costs.
bool VerifyNothing(std::string_view password);
// How many hashes this process has worked out, for whichever reason.
std::uint64_t PasswordHashesWorkedOut();

// Four groups of four letters and digits that are not mistaken for one another: 78 bits.
std::string MakePassword();

}  // namespace goods
