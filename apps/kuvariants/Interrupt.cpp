#include "Interrupt.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <initializer_list>

#include "ProgressLine.h"

namespace Interrupt {
namespace {

volatile std::sig_atomic_t deferring = 0;
volatile std::sig_atomic_t pending = 0;
volatile std::sig_atomic_t isPassedOn = 0;
std::atomic<void (*)()> presentReceiver{nullptr};
/** Where Told hears of a signal; -1 without one. */
volatile std::sig_atomic_t tellingEnd = -1;

[[noreturn]] void leave(int signal) {
  ProgressLine::clearInHandler();
  _exit(exitCode(signal));
}

void tell(void (*receiver)()) {
  const int error = errno;
  isPassedOn = 1;
  receiver();
  errno = error;
}

void tellEnd(int signal) {
  const int error = errno;
  pending = signal;
  // The pipe is empty: there is one signal to tell.
  if (write(tellingEnd, "", 1) < 0) leave(signal);
  errno = error;
}

void onSignal(int signal) {
  void (*const receiver)() = presentReceiver;
  if (tellingEnd >= 0 && !pending) {
    tellEnd(signal);
  } else if (deferring) {
    pending = signal;
  } else if (signal == SIGINT && receiver && !isPassedOn) {
    tell(receiver);
  } else {
    leave(signal);
  }
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

void passOn(void (*receiver)()) {
  presentReceiver = receiver;
  isPassedOn = 0;
  takeOver(SIGINT);
}

void taken() { isPassedOn = 0; }

void leaveInterrupted() { leave(SIGINT); }

AtOnce::AtOnce() : _receiver(presentReceiver.exchange(nullptr)) {
  sigaction(SIGINT, nullptr, &_former);
  takeOver(SIGINT);
}

AtOnce::~AtOnce() {
  sigaction(SIGINT, &_former, nullptr);
  presentReceiver = _receiver;
}

Deferred::Deferred() { deferring = 1; }

Deferred::~Deferred() {
  deferring = 0;
  if (pending) leave(pending);
}

Told::Told() {
  if (pipe2(_ends, O_CLOEXEC | O_NONBLOCK) == 0) tellingEnd = _ends[1];
}

Told::~Told() {
  tellingEnd = -1;
  for (const int end : _ends) {
    if (end >= 0) close(end);
  }
}

int Told::signal() { return pending; }

}  // namespace Interrupt
