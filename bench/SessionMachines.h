#pragma once

#include <sys/types.h>

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <vector>

/** A broker of the benchmark's own, on a port of its own; it ends with this object. */
class BenchBroker {
 public:
  BenchBroker();
  ~BenchBroker();
  BenchBroker(const BenchBroker&) = delete;
  BenchBroker& operator=(const BenchBroker&) = delete;

  /** "nats://127.0.0.1:port"; empty if it did not start. */
  const QString& url() const { return _url; }

 private:
  QTemporaryDir _folder;
  QProcess _process;
  QString _url;
};

/** Partners of a session, each in a process of its own, that tell of each command as it has run. */
class BenchPartners {
 public:
  /** Starts them and waits until they have joined. */
  BenchPartners(int count, const QString& url, const QString& session);
  ~BenchPartners();
  BenchPartners(const BenchPartners&) = delete;
  BenchPartners& operator=(const BenchPartners&) = delete;

  /** Waits until so many more commands have run at each of them; false if one of them is gone. */
  bool waitForRuns(int runs);

 private:
  struct Partner {
    pid_t process;
    int output;
  };
  std::vector<Partner> _partners;
};

/** What the program does when it is started as a partner: `--partner URL SESSION`. */
int benchPartner(int argc, char** argv);
