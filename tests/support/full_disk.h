#pragma once

#include <csignal>
#include <sys/resource.h>

namespace tolmira::testing {

// While it lives no file of this process can grow beyond `bytes`: writes end as they do on a full disk.
class FullDisk {
public:
  explicit FullDisk(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &m_before);
    rlimit limit = m_before;
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &m_before);
    std::signal(SIGXFSZ, m_handler);
  }
  FullDisk(const FullDisk &) = delete;
  FullDisk &operator=(const FullDisk &) = delete;

private:
  rlimit m_before = {};
  void (*m_handler)(int);
};

} // namespace tolmira::testing
