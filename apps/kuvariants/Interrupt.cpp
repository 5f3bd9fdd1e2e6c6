#include "Interrupt.h"

#include <unistd.h>

#include <csignal>
#include <initializer_list>

namespace Interrupt {
namespace {

volatile std::sig_atomic_t deferring = 0;
volatile std::sig_atomic_t pending = 0;

[[noreturn]] void leave(int signal) { _exit(128 + signal); }

void onSignal(int signal) {
  if (!deferring) leave(signal);
  pending = signal;
}

void takeOver(int signal) {
  struct sigaction present {};
  if (sigaction(signal, nullptr, &present) == 0 && present.sa_handler == SIG_IGN) return;
  struct sigaction ours {};
  ours.sa_handler = onSignal;
  sigaction(signal, &ours, nullptr);
}

}  // namespace

void install() {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP})
    takeOver(signal);
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

Deferred::Deferred() { deferring = 1; }

Deferred::~Deferred() {
  deferring = 0;
  if (pending) leave(pending);
}

}  // namespace Interrupt
