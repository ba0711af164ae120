// The C library's calls of a system, which a page does not have: each fails. Only messages of a program that ends would
// use them.
#include <cstddef>
#include <cstdint>

namespace {

constexpr int32_t kNotSupported = 58;

} // namespace

extern "C" {

int32_t closeDescriptor(int32_t) __asm__("__imported_wasi_snapshot_preview1_fd_close");
int32_t seekDescriptor(int32_t, int64_t, int32_t, int32_t) __asm__("__imported_wasi_snapshot_preview1_fd_seek");
int32_t writeDescriptor(int32_t, int32_t, int32_t, int32_t) __asm__("__imported_wasi_snapshot_preview1_fd_write");

int32_t closeDescriptor(int32_t) { return kNotSupported; }
int32_t seekDescriptor(int32_t, int64_t, int32_t, int32_t) { return kNotSupported; }
int32_t writeDescriptor(int32_t, int32_t, int32_t, int32_t) { return kNotSupported; }
}
