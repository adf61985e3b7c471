#pragma once

#include <sys/resource.h>

#include <csignal>

namespace brindlemoor::test {

/// While it stands, no file can grow past a number of bytes: writing more fails half-way, as on a
/// full disk.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit now = before_;
        now.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &now);
    }

    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

  private:
    rlimit before_ = {};
    void (*handler_)(int);
};

}  // namespace brindlemoor::test
