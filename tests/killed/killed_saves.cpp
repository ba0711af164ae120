// A program that saves a file over and over is killed at any moment, time after time: the file is then the one before
// or the one after, whole. Usage: killed_saves KILLS. POSIX only.
#include "base/file_ops.h"
#include "support/temporary_folder.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include <sys/wait.h>
#include <unistd.h>

// The two files that take turns, each of one value throughout.
constexpr size_t kLengths[] = {200'000, 300'000};

[[noreturn]] static void saveForever(const std::string &path) {
  for (uint8_t turn = 0;; turn ^= 1) {
    const std::vector<uint8_t> bytes(kLengths[turn], turn);
    if (!replaceFile(systemFiles(), path, [&](const PutBytes &put) { return put(bytes); }).empty()) std::exit(1);
  }
}

int main(int, char **arguments) {
  const TemporaryFolder folder("killed_saves");
  const std::string path = folder.write(u8"picture.bmp", std::vector<uint8_t>(kLengths[0], 0));
  bool left[2] = {};
  for (int kill = std::atoi(arguments[1]); kill > 0; --kill) {
    const pid_t process = fork();
    if (process == 0) saveForever(path);
    usleep(static_cast<unsigned>(std::rand()) % 4000); // microseconds: many saves
    ::kill(process, SIGKILL);
    int status = 0;
    if (waitpid(process, &status, 0) != process || !WIFSIGNALED(status)) return std::puts("nothing was killed"), 1;
    const std::vector<uint8_t> bytes = folder.read(u8"picture.bmp");
    const uint8_t turn = bytes.empty() ? 2 : bytes[0];
    const bool whole =
        turn < 2 && bytes.size() == kLengths[turn] && std::ranges::count(bytes, turn) == std::ssize(bytes);
    if (!whole) return std::printf("a file of %zu bytes is left\n", bytes.size()), 1;
    left[turn] = true;
  }
  return left[0] && left[1] && folder.fileCount() > 1 ? 0 : 1; // otherwise no kill met a save
}
