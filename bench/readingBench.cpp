// What it costs to read a document of 1000 sets with 100 references each and 10,000 variants with
// 10 states each, beside a bare QDomDocument::setContent of the same text: time and peak memory.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <QDomDocument>
#include <fstream>
#include <string>

#include "benchMain.h"
#include "document/kuVariantReader.h"
#include "host/kernel/kuController.h"
#include "manager/kuVariants.h"

namespace {

constexpr int setCount = 1000;
constexpr int referencesOfASet = 100;
constexpr int variantCount = 10000;
constexpr int statesOfAVariant = 10;

std::string number(int i) { return std::to_string(i); }

std::string setText(int set) {
  std::string text = "<VariantSet name=\"Set " + number(set) + "\" comment=\"\">\n";
  for (int i = 0; i < referencesOfASet; ++i) {
    const int variant = (set * referencesOfASet + i * 7) % variantCount;
    text += "<NodeVariantRef ref=\"Variant " + number(variant) + "\" state=\"State " +
            number(i % statesOfAVariant) + "\"/>\n";
  }
  return text + "</VariantSet>\n";
}

std::string variantText(int variant) {
  const std::string name = "Variant " + number(variant);
  std::string text = "<NodeVariant name=\"" + name + "\" base=\"" + name + "\">\n";
  text += "<Default ref=\"State 0\"/>\n";
  for (int i = 0; i < statesOfAVariant; ++i) {
    text += "<State name=\"State " + number(i) + "\"><Hotkey/></State>\n";
  }
  return text + "</NodeVariant>\n";
}

const std::string& documentText() {
  static const std::string text = [] {
    std::string made =
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!DOCTYPE variants>\n<Variants>\n";
    for (int i = 0; i < setCount; ++i)
      made += setText(i);
    for (int i = 0; i < variantCount; ++i)
      made += variantText(i);
    return made + "</Variants>\n";
  }();
  return text;
}

/** A line such as "VmHWM:  1234 kB" of the process's status, in MB. */
double statusMegabytes(const std::string& key) {
  std::ifstream status("/proc/self/status");
  std::string word;
  while (status >> word) {
    double kilobytes = 0;
    if (word == key + ":" && status >> kilobytes) return kilobytes / 1024;
  }
  return 0;
}

/** Peak memory of what runs between its making and peak(), over what was there before. */
class PeakMemory {
 public:
  PeakMemory() {
    malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << "5";
    _before = statusMegabytes("VmRSS");
  }
  double peak() const { return statusMegabytes("VmHWM") - _before; }

 private:
  double _before = 0;
};

template <class Pass, class Reset>
void measure(benchmark::State& state, Pass pass, Reset reset) {
  const std::string& text = documentText();
  double peak = 0;
  for (auto _ : state) {
    state.PauseTiming();
    reset();
    const PeakMemory memory;
    state.ResumeTiming();
    pass(text);
    state.PauseTiming();
    peak = std::max(peak, memory.peak());
    reset();
    state.ResumeTiming();
  }
  state.counters["peak_MB"] = peak;
  state.counters["text_MB"] = static_cast<double>(text.size()) / 1024 / 1024;
}

void bareParse(benchmark::State& state) {
  QDomDocument document;
  measure(
      state, [&](const std::string& text) { document.setContent(QByteArray(text.c_str()), false); },
      [&] { document = QDomDocument(); });
}

void read(benchmark::State& state) {
  kuVariantReader reader;
  measure(
      state, [&](const std::string& text) { reader.read(text.c_str()); },
      [&] {
        reader = kuVariantReader();
        kuController::call("clearAllVariants", 1);
      });
}

bool registerAll() {
  // Alternating passes: each name stands once per repetition, one behind the other.
  for (int pass = 0; pass < 3; ++pass) {
    benchmark::RegisterBenchmark("setContent", bareParse)->Iterations(3);
    benchmark::RegisterBenchmark("read", read)->Iterations(3);
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) { return benchMain(argc, argv, registerAll); }
