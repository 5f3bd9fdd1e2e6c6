// Any bytes as what comes from a session: as a frame, as a sign of life, and as what a command of
// the library writes. What is read as whole must be written as it was; what is not must say why,
// and nothing is allocated that the bytes do not hold.

#include <QGuiApplication>
#include <cstdint>
#include <cstdlib>

#include "standalone/StandaloneHost.h"
#include "standalone/session/SessionCommand.h"
#include "standalone/session/SessionFrame.h"
#include "standalone/session/SessionPartners.h"
#include "standalone/session/SessionSubject.h"

using namespace kuStandalone;

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // These last until the process ends, as the fuzzer calls no exit of ours.
  static const auto* application = new QGuiApplication(*argc, *argv);
  static const auto* host = new StandaloneHost;
  // The library's commands come with the library: without it nothing would be read.
  const bool hasCommands = bool(kuSessionCommandFactory::the().create("SelectVariantSet"));
  return application && host && hasCommands ? 0 : 1;
}

namespace {

void check(bool held) {
  if (!held) std::abort();
}

/** Reads a command, and runs it if it was read whole. */
void runCommand(const SessionFrame& frame) {
  const MadeCommand made = makeCommand(frame);
  check((made.command == nullptr) != made.reason.isEmpty());
  if (!made.command) return;
  const QByteArray subject = SessionSubject("s").command(frame.type, keyOf(*made.command));
  check(subject.size() < 300 && !subject.contains(' '));
  CommandRun::run(*made.command);
}

void readAsFrame(const QByteArray& bytes) {
  const SessionFrameReading reading = readFrame(bytes);
  const bool isWhole = reading.status == SessionFrameReading::Status::Whole;
  check(isWhole == reading.reason.isEmpty());
  if (!isWhole) return;
  check(writeFrame(reading.frame) == bytes);
  if (reading.frame.kind == SessionFrame::Kind::Command) runCommand(reading.frame);
}

void readAsNote(const QByteArray& bytes) {
  PresenceNote note;
  if (readNote(bytes, note)) check(note.interval >= 50 && note.interval <= 60'000);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray bytes(reinterpret_cast<const char*>(data), int(size));
  readAsFrame(bytes);
  readAsNote(bytes);
  for (const char* type : {"SelectVariant", "SelectVariantSet"}) {
    SessionFrame frame;
    frame.type = type;
    frame.payload = bytes;
    check(readFrame(writeFrame(frame)).status == SessionFrameReading::Status::Whole ||
          size + 100 > kSessionFrameBytes);
    runCommand(frame);
  }
  return 0;
}
