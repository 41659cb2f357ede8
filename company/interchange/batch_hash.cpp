#include "company/interchange/batch_hash.h"

#include <array>

#include <sodium.h>

#include "company/company.h"
#include "company/writer/movement_intake.h"

namespace goods {

namespace {

constexpr std::size_t kBytes = 32;

}  // namespace

struct BatchHash::State {
  crypto_generichash_state hash;
};

BatchHash::BatchHash() : state_(std::make_unique<State>()) {
  if (sodium_init() < 0) throw CompanyError("کتابخانه رمزنگاری آماده نشد.");
  crypto_generichash_init(&state_->hash, nullptr, 0, kBytes);
}

BatchHash::~BatchHash() = default;

void BatchHash::Add(const Movement& movement, bool numbered) {
  ++movements_;
  Movement counted = movement;
  if (numbered) counted.document = 0;
  PackMovement(counted, movement.order, packed_);
  const std::uint64_t size = packed_.size();
  crypto_generichash_update(&state_->hash, reinterpret_cast<const unsigned char*>(&size), sizeof(size));
  crypto_generichash_update(&state_->hash, reinterpret_cast<const unsigned char*>(packed_.data()),
                            packed_.size());
}

std::string BatchHash::Text() {
  std::array<unsigned char, kBytes> hash{};
  crypto_generichash_final(&state_->hash, hash.data(), hash.size());
  std::string text(kBytes * 2 + 1, '\0');
  sodium_bin2hex(text.data(), text.size(), hash.data(), hash.size());
  text.pop_back();
  return text;
}

}  // namespace goods
