#pragma once

#include <sys/resource.h>

namespace tolmira::testing {

// While it lives, no file and no folder can be opened; those that are open stay so.
class NoFileHandles {
public:
  NoFileHandles() {
    getrlimit(RLIMIT_NOFILE, &m_before);
    rlimit none = m_before;
    none.rlim_cur = 0;
    setrlimit(RLIMIT_NOFILE, &none);
  }
  ~NoFileHandles() { setrlimit(RLIMIT_NOFILE, &m_before); }
  NoFileHandles(const NoFileHandles &) = delete;
  NoFileHandles &operator=(const NoFileHandles &) = delete;

private:
  rlimit m_before{};
};

} // namespace tolmira::testing
