// The global allocation functions, all taking their memory from
// REPLACED_NEW_ALLOCATE(bytes), which returns a block from std::malloc or
// throws std::bad_alloc; every form of delete gives the block back with
// std::free. Define REPLACED_NEW_ALLOCATE and include this in exactly one file
// of a test program.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <new>

void* operator new(size_t bytes) {
  return REPLACED_NEW_ALLOCATE(bytes);
}
void* operator new[](size_t bytes) {
  return REPLACED_NEW_ALLOCATE(bytes);
}
void* operator new(size_t bytes, const std::nothrow_t&) noexcept {
  try {
    return REPLACED_NEW_ALLOCATE(bytes);
  } catch (...) {
    return nullptr;
  }
}
void* operator new[](size_t bytes, const std::nothrow_t&) noexcept {
  try {
    return REPLACED_NEW_ALLOCATE(bytes);
  } catch (...) {
    return nullptr;
  }
}
void operator delete(void* p) noexcept {
  std::free(p);
}
void operator delete[](void* p) noexcept {
  std::free(p);
}
void operator delete(void* p, size_t) noexcept {
  std::free(p);
}
void operator delete[](void* p, size_t) noexcept {
  std::free(p);
}
void operator delete(void* p, const std::nothrow_t&) noexcept {
  std::free(p);
}
void operator delete[](void* p, const std::nothrow_t&) noexcept {
  std::free(p);
}
