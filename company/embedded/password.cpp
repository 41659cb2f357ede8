#include "company/embedded/password.h"

#include <atomic>
#include <cstddef>
#include <optional>

#include <sodium.h>

#include "company/company.h"

namespace goods {

namespace {

constexpr unsigned long kMostMemory = crypto_pwhash_MEMLIMIT_INTERACTIVE / 1024;  // KiB
constexpr unsigned long kMostPasses = 4;

// What making a hash costs. Tests under the sanitizers make hundreds, and look at something else.
#if defined(GOODS_SANITIZED)
constexpr unsigned long long kPasses = crypto_pwhash_OPSLIMIT_MIN;
constexpr std::size_t kMemory = crypto_pwhash_MEMLIMIT_MIN;  // bytes
#else
constexpr unsigned long long kPasses = crypto_pwhash_OPSLIMIT_INTERACTIVE;
constexpr std::size_t kMemory = crypto_pwhash_MEMLIMIT_INTERACTIVE;  // bytes
#endif

std::atomic<std::uint64_t> workedOut{0};

void Start() {
  if (sodium_init() < 0) throw CompanyError("کتابخانه رمزنگاری آماده نشد.");
}

// The number behind a name such as "m=", within "$...$" or ",...,"; none when it is not there or too long.
std::optional<unsigned long> CostNamed(std::string_view hash, std::string_view name) {
  const std::size_t at = hash.find(name);
  if (at == hash.npos) return std::nullopt;
  const std::string_view rest = hash.substr(at + name.size());
  const std::string_view digits = rest.substr(0, rest.find_first_not_of("0123456789"));
  if (digits.empty() || digits.size() > 9) return std::nullopt;
  return std::stoul(std::string(digits));
}

// Whether checking a password against this hash costs no more than what this program itself may ask for. The
// hash comes from the file, and with it the memory and time that the check takes.
bool IsAffordable(std::string_view hash) {
  if (hash.size() >= crypto_pwhash_STRBYTES || !hash.starts_with("$argon2id$v=19$m=")) return false;
  const auto memory = CostNamed(hash, "$m=");
  const auto passes = CostNamed(hash, ",t=");
  const auto lanes = CostNamed(hash, ",p=");
  return memory && passes && lanes && *memory <= kMostMemory && *passes <= kMostPasses && *lanes == 1;
}

std::string Base64(const unsigned char* bytes, std::size_t count) {
  constexpr int kVariant = sodium_base64_VARIANT_ORIGINAL_NO_PADDING;
  std::string text(sodium_base64_encoded_len(count, kVariant), '\0');
  sodium_bin2base64(text.data(), text.size(), bytes, count, kVariant);
  text.pop_back();  // its closing NUL
  return text;
}

}  // namespace

std::string HashPassword(std::string_view password) {
  Start();
  PasswordSalt salt{};
  randombytes_buf(salt.data(), salt.size());
  return HashPassword(password, salt);
}

std::string HashPassword(std::string_view password, const PasswordSalt& salt) {
  static_assert(std::tuple_size_v<PasswordSalt> == crypto_pwhash_SALTBYTES);
  Start();
  ++workedOut;
  std::array<unsigned char, 32> hash{};
  if (crypto_pwhash(hash.data(), hash.size(), password.data(), password.size(), salt.data(), kPasses, kMemory,
                    crypto_pwhash_ALG_ARGON2ID13) != 0) {
    throw CompanyError("حافظه برای نگهداری گذرواژه کافی نیست.");
  }
  return "$argon2id$v=19$m=" + std::to_string(kMemory / 1024) + ",t=" + std::to_string(kPasses) + ",p=1$" +
         Base64(salt.data(), salt.size()) + "$" + Base64(hash.data(), hash.size());
}

PasswordSalt SaltFrom(std::string_view text) {
  Start();
  PasswordSalt salt{};
  crypto_generichash(salt.data(), salt.size(), reinterpret_cast<const unsigned char*>(text.data()),
                     text.size(), nullptr, 0);
  return salt;
}

bool VerifyPassword(std::string_view password, const std::string& hash) {
  Start();
  if (!IsAffordable(hash)) return VerifyNothing(password);
  ++workedOut;
  return crypto_pwhash_str_verify(hash.c_str(), password.data(), password.size()) == 0;
}

bool VerifyNothing(std::string_view password) {
  HashPassword(password);
  return false;
}

std::uint64_t PasswordHashesWorkedOut() { return workedOut; }

std::string MakePassword() {
  Start();
  constexpr std::string_view kSigns = "abcdefghkmnpqrstuvwxyz23456789";
  constexpr int kGroups = 4;
  constexpr int kGroupLength = 4;
  std::string password;
  for (int group = 0; group < kGroups; ++group) {
    if (group > 0) password += '-';
    for (int i = 0; i < kGroupLength; ++i) {
      password += kSigns[randombytes_uniform(static_cast<std::uint32_t>(kSigns.size()))];
    }
  }
  return password;
}

}  // namespace goods
