#include "failing_new.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

thread_local int calls = 0;
thread_local int failAt = 0;
thread_local bool counts = false;

void* Allocate(std::size_t size, std::size_t alignment = 0) {
  if (counts && ++calls == failAt) throw std::bad_alloc();
  const std::size_t wanted = size == 0 ? 1 : size;
  void* memory = alignment == 0
                     ? std::malloc(wanted)
                     : std::aligned_alloc(alignment, (wanted + alignment - 1) / alignment * alignment);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void* operator new(std::size_t size, std::align_val_t alignment) {
  return Allocate(size, static_cast<std::size_t>(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
  return Allocate(size, static_cast<std::size_t>(alignment));
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  try {
    return Allocate(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept { return operator new(size, tag); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }

namespace goods {

FailingNew::FailingNew(int at) {
  calls = 0;
  failAt = at;
  counts = true;
}

FailingNew::~FailingNew() { counts = false; }

int FailingNew::Calls() { return calls; }

}  // namespace goods
