#pragma once

#include <benchmark/benchmark.h>

#include <QApplication>
#include <cstdlib>

#include "host/kernel/kuController.h"
#include "standalone/StandaloneHost.h"

/**
 * What every program here does: it starts a host without a window, runs the benchmarks that
 * @p prepare registers, and leaves an empty manager behind.
 * @param prepare a function that answers false where they would measure the wrong thing.
 */
template <class Prepare>
int benchMain(int argc, char** argv, Prepare prepare) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const kuStandalone::StandaloneHost host;
  benchmark::Initialize(&argc, argv);
  if (!prepare()) return EXIT_FAILURE;
  benchmark::RunSpecifiedBenchmarks();
  kuController::call("clearAllVariants", 1);
  return EXIT_SUCCESS;
}
