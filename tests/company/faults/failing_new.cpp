#include "failing_new.h"

#include <cstddef>
#include <cstdlib>
#include <new>

#ifdef _WIN32
#include <malloc.h>
#endif

namespace {

thread_local int calls = 0;
thread_local int failAt = 0;
thread_local bool counts = false;

// Aligned memory is the C runtime's matter on Windows, and given back to it by another name.
#ifdef _WIN32
void* AlignedMemory(std::size_t size, std::size_t alignment) { return _aligned_malloc(size, alignment); }
void FreeAligned(void* memory) { _aligned_free(memory); }
#else
void* AlignedMemory(std::size_t size, std::size_t alignment) {
  return std::aligned_alloc(alignment, (size + alignment - 1) / alignment * alignment);
}
void FreeAligned(void* memory) { std::free(memory); }
#endif

void* Allocate(std::size_t size, std::size_t alignment = 0) {
  if (counts && ++calls == failAt) throw std::bad_alloc();
  const std::size_t wanted = size == 0 ? 1 : size;
  void* memory = alignment == 0 ? std::malloc(wanted) : AlignedMemory(wanted, alignment);
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
void operator delete(void* memory, std::align_val_t) noexcept { FreeAligned(memory); }
void operator delete[](void* memory, std::align_val_t) noexcept { FreeAligned(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { FreeAligned(memory); }
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept { FreeAligned(memory); }

namespace goods {

FailingNew::FailingNew(int at) {
  calls = 0;
  failAt = at;
  counts = true;
}

FailingNew::~FailingNew() { counts = false; }

int FailingNew::Calls() { return calls; }

}  // namespace goods
