#include "attack/processes.h"

#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <exception>

namespace set32 {

namespace {

constexpr int thrownStatus = 99;

int Run(const std::function<int()>& work) {
  try {
    return work();
  } catch (const std::exception&) {
    return thrownStatus;
  }
}

}  // namespace

Child::Child(const std::function<int()>& work) : process_(fork()) {
  if (process_ != 0) return;
  prctl(PR_SET_PDEATHSIG, SIGKILL);  // none outlives its parent, however that ends
  _exit(Run(work));
}

Child::~Child() {
  if (!IsRunning()) return;
  Kill();
  Wait();
}

void Child::Kill() const {
  if (IsRunning()) kill(process_, SIGKILL);
}

int Child::Wait() {
  int status = 0;
  const pid_t process = std::exchange(process_, -1);
  if (process <= 0 || waitpid(process, &status, 0) != process) return thrownStatus;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

Tellings::Tellings() {
  std::array<int, 2> ends{-1, -1};
  if (pipe(ends.data()) != 0) return;
  hear_ = FileHandle(ends[0]);
  tell_ = FileHandle(ends[1]);
}

bool Tellings::Tell(int number) const {
  return write(tell_.Get(), &number, sizeof number) == sizeof number;
}

bool Tellings::Hear(int& number) const {
  return read(hear_.Get(), &number, sizeof number) == sizeof number;
}

}  // namespace set32
