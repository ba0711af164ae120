// A disk on which no file gets longer than so many bytes, as long as this lives. POSIX only.
#pragma once

#include <csignal>
#include <cstddef>

#include <sys/resource.h>

struct FullDisk {
  rlimit before{};

  explicit FullDisk(size_t room) {
    std::signal(SIGXFSZ, SIG_IGN); // the write fails instead
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit limit{.rlim_cur = room, .rlim_max = before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }

  ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before); }
  FullDisk(const FullDisk &) = delete;
};
