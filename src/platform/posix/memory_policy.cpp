#include "platform/posix/memory_policy.h"

#include <cstdlib>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace quill::platform {

#if defined(__GLIBC__)

void KeepFreedMemory() {
  constexpr int kLargestKeptBlock = 32 << 20;  // the largest that glibc allows
  constexpr int kKeptAtTheTop = 256 << 20;
  mallopt(M_MMAP_THRESHOLD, kLargestKeptBlock);
  mallopt(M_TRIM_THRESHOLD, kKeptAtTheTop);
}

void ReturnFreedMemory() {
  malloc_trim(0);
}

#else

void KeepFreedMemory() {}
void ReturnFreedMemory() {}

#endif

}  // namespace quill::platform
