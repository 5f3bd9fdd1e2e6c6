#pragma once

#include <QString>
#include <QStringList>

#include "host/session/kuSessionCommand.h"

/**
 * What the commands of these tests did in this process, one text each, in their order: "A=1" for a
 * NoteCommand that ran when the join was complete, "A=1 (joining)" for one that ran before.
 */
QStringList& sessionNotes();

/** What the commands of the tests have in common: each writes a text to a target. */
class NoteBase : public kuSessionCommand {
 public:
  void execute(kuSessionClient* client) override;
  void writeKey(QDataStream& stream) const override;
  void write(QDataStream& stream) const override;
  void read(QDataStream& stream) override;

  /** Of the object that was pushed, and of no other. */
  QString mark;

 protected:
  NoteBase(const QString& target, const QString& text, bool isForLateJoiners, bool runsWhileBusy,
           bool runsAtSender = true)
      : kuSessionCommand(runsAtSender, isForLateJoiners, runsWhileBusy),
        _target(target),
        _text(text) {}
  ~NoteBase() = default;

 private:
  QString _target, _text;
};

class NoteCommand final : public NoteBase {
 public:
  explicit NoteCommand(const QString& target = {}, const QString& text = {})
      : NoteBase(target, text, true, false) {}
  static kuSessionCommand* create() { return new NoteCommand; }
};

/** For those who are there when it is sent. */
class PassingNoteCommand final : public NoteBase {
 public:
  explicit PassingNoteCommand(const QString& target = {}, const QString& text = {})
      : NoteBase(target, text, false, false) {}
  static kuSessionCommand* create() { return new PassingNoteCommand; }
};

/** Runs also while the application is busy. */
class UrgentNoteCommand final : public NoteBase {
 public:
  explicit UrgentNoteCommand(const QString& target = {}, const QString& text = {})
      : NoteBase(target, text, true, true) {}
  static kuSessionCommand* create() { return new UrgentNoteCommand; }
};

/** Runs at the partners, not at its sender. */
class DistantNoteCommand final : public NoteBase {
 public:
  explicit DistantNoteCommand(const QString& target = {}, const QString& text = {})
      : NoteBase(target, text, true, false, false) {}
  static kuSessionCommand* create() { return new DistantNoteCommand; }
};

/** Pushes a note in turn when it runs, as the selection of a set selects variants. */
class NestingNoteCommand final : public NoteBase {
 public:
  explicit NestingNoteCommand(const QString& target = {}, const QString& text = {})
      : NoteBase(target, text, true, false) {}
  static kuSessionCommand* create() { return new NestingNoteCommand; }
  void execute(kuSessionClient* client) override;
};
