// A program that saves a file over and over is killed at any moment, time after time: the file is then the one before
// or the one after, whole. Usage: killed_saves KILLS, or killed_saves --save FILE for what is killed.
#include "base/file_ops.h"
#include "support/temporary_folder.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>

#ifdef _WIN32
#include <windows.h>
#else
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace {

// The two files that take turns, each of one value throughout.
constexpr size_t kLengths[] = {200'000, 300'000};

std::string beginningOf(const std::string &path) { return path + ".begun"; }

[[noreturn]] void saveForever(const std::string &path) {
  replaceFile(systemFiles(), beginningOf(path), {});
  for (uint8_t turn = 0;; turn ^= 1) {
    const std::vector<uint8_t> bytes(kLengths[turn], turn);
    if (const std::string failure = replaceFile(systemFiles(), path, bytes); !failure.empty()) {
      std::printf("not saved: %s\n", failure.c_str());
      std::exit(1);
    }
  }
}

bool isWhole(const std::vector<uint8_t> &bytes) {
  if (bytes.empty() || bytes[0] > 1 || bytes.size() != kLengths[bytes[0]]) return false;
  return std::count(bytes.begin(), bytes.end(), bytes[0]) == std::ssize(bytes);
}

#ifdef _WIN32

// Starts the saving and kills it that long after it has begun. Returns false when there was nothing to kill.
bool killASaver(const std::string &path, const char *program, unsigned microseconds) {
  std::string line = "\"" + std::string(program) + "\" --save \"" + path + "\"";
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process)) {
    return false;
  }
  bool runs = true;
  while (runs && !DeleteFileA(beginningOf(path).c_str()))
    runs = WaitForSingleObject(process.hProcess, 1) == WAIT_TIMEOUT;
  runs = runs && WaitForSingleObject(process.hProcess, microseconds / 1000) == WAIT_TIMEOUT;
  TerminateProcess(process.hProcess, 1);
  WaitForSingleObject(process.hProcess, INFINITE);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return runs;
}

#else

bool killASaver(const std::string &path, const char *, unsigned microseconds) {
  const pid_t process = fork();
  if (process < 0) return false;
  if (process == 0) saveForever(path);
  usleep(microseconds);
  kill(process, SIGKILL);
  int status = 0;
  return waitpid(process, &status, 0) == process && WIFSIGNALED(status);
}

#endif

} // namespace

int main(int argumentCount, char **arguments) {
  if (argumentCount == 3 && arguments[1] == std::string_view("--save")) saveForever(arguments[2]);
  if (argumentCount != 2) return 2;
  const int kills = std::atoi(arguments[1]);
  constexpr unsigned kLongestLife = 4000; // microseconds: many saves
  const TemporaryFolder folder("killed_saves");
  std::minstd_rand random(6);
  const std::string path = folder.write(u8"picture.bmp", std::vector<uint8_t>(kLengths[0], 0));
  bool first = false;
  bool second = false;
  for (int i = 1; i <= kills; ++i) {
    if (!killASaver(path, arguments[0], static_cast<unsigned>(random()) % kLongestLife)) {
      std::printf("kill %d: no saver that could be killed\n", i);
      return 1;
    }
    const std::vector<uint8_t> bytes = folder.read(u8"picture.bmp");
    if (!isWhole(bytes)) {
      std::printf("kill %d: a file of %zu bytes is left\n", i, bytes.size());
      return 1;
    }
    (bytes[0] == 0 ? first : second) = true;
  }
  std::error_code error;
  std::filesystem::remove(beginningOf(path), error);
  const size_t unfinished = folder.fileCount() - 1;
  std::printf("%d kills, %zu unfinished files beside\n", kills, unfinished);
  return first && second && unfinished > 0 ? 0 : 1; // otherwise no kill met a save
}
