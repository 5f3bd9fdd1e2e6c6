// Each document is read in a process of its own, whose time and peak memory are measured. The child
// tells by its exit code whether the result was right.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <functional>

#include "ReaderTest.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuNodeVariant.h"

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool measuresMemory = false;  // the sanitizer's own memory would count
#else
constexpr bool measuresMemory = true;
#endif

constexpr double secondsAllowed = 10;
constexpr double timesTheText = 30;

double peakBytes(int who) {
  rusage usage{};
  getrusage(who, &usage);
  return double(usage.ru_maxrss) * 1024;
}

class HostileDocument : public ReaderTest {
 protected:
  /** Reads the text in a child; @p isRight looks at the result there. */
  void expectWithinBounds(const std::string& text, const std::function<bool()>& isRight) {
    const double before = peakBytes(RUSAGE_SELF);
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
      alarm(60);
      readText(text);
      _exit(isRight() ? 0 : 1);
    }
    int status = 0;
    rusage usage{};
    ASSERT_EQ(wait4(child, &status, 0, &usage), child);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "status " << status;
    EXPECT_LT(taken.count(), secondsAllowed);
    const double used = double(usage.ru_maxrss) * 1024 - before;
    // A small text is not measured against what a process takes anyway.
    const double slack = 32.0 * 1024 * 1024;
    if (measuresMemory) {
      EXPECT_LT(used, timesTheText * double(text.size()) + slack);
    }
    RecordProperty("seconds", std::to_string(taken.count()));
    RecordProperty("timesTheText", std::to_string(used / double(text.size())));
  }

  /** An error with this text, and nothing read. */
  void expectRefused(const std::string& text, const std::string& error) {
    kuVariants::createVariantSet("Kept", false, nullptr);
    expectWithinBounds(text, [&] {
      return managerDump() == "set Kept\n" && messages.lines().empty() && log.size() == 1 &&
             log[0].find("error: Error loading variants: \"" + error) == 0;
    });
  }
};

std::string nested(int depth, const std::string& closing) {
  std::string text = "<Variants>";
  for (int i = 0; i < depth; ++i)
    text += "<VariantSet name='a'>";
  return text + closing;
}

TEST_F(HostileDocument, ManySetsAndVariants) {
  std::string text = "<Variants>";
  for (int i = 0; i < 1000; ++i) {
    text += "<VariantSet name='S" + std::to_string(i) + "'>";
    for (int j = 0; j < 100; ++j)
      text += "<NodeVariantRef ref='V" + std::to_string(i * 7 + j) + "' state='x'/>";
    text += "</VariantSet>";
  }
  for (int i = 0; i < 10000; ++i) {
    text += "<NodeVariant name='V" + std::to_string(i) + "' base='b'>";
    for (int j = 0; j < 10; ++j)
      text += "<State name='" + std::to_string(j) + "'><Hotkey/></State>";
    text += "</NodeVariant>";
  }
  expectWithinBounds(text + "</Variants>", [] {
    return kuVariants::getVariantSets().size() == 1000 &&
           kuVariants::getVariantSets().back()->getNodeVariants().size() == 100 &&
           kuVariants::getNodeVariants().size() == 10000 &&
           kuVariants::getNodeVariants().back()->getOptions().size() == 10;
  });
}

TEST_F(HostileDocument, OneVariantWithManyStates) {
  std::string text = "<Variants><NodeVariant name='V'>";
  for (int i = 0; i < 100000; ++i)
    text += "<State name='State " + std::to_string(i) + "'/>";
  expectWithinBounds(text + "</NodeVariant></Variants>", [] {
    return kuVariants::findNodeVariant("V")->getOptions().size() == 100000;
  });
}

TEST_F(HostileDocument, OneSetWithManyReferences) {
  std::string text = "<Variants><VariantSet name='S'>";
  for (int i = 0; i < 100000; ++i)
    text += "<LightVariantRef ref='Light " + std::to_string(i) + "'/>";
  expectWithinBounds(text + "</VariantSet></Variants>", [] {
    return kuVariants::findVariantSet("S")->getLightVariants().size() == 100000;
  });
}

TEST_F(HostileDocument, DeepNestingIsRefused) {
  expectRefused(nested(100000, ""), "elements are nested too deeply");
}

TEST_F(HostileDocument, EntityBombIsRefused) {
  std::string text = "<!DOCTYPE a [<!ENTITY a0 'aaaaaaaaaa'>";
  for (int i = 1; i < 9; ++i) {
    const std::string one = "&a" + std::to_string(i - 1) + ";";
    text += "<!ENTITY a" + std::to_string(i) + " '" + one + one + one + one + one + one + "'>";
  }
  expectRefused(text + "]><Variants>&a8;</Variants>", "entity declarations are not allowed");
}

TEST_F(HostileDocument, MissingEndIsRefused) {
  expectRefused("<Variants><VariantSet name='A'/>", "");
}

TEST_F(HostileDocument, EmptyFileIsRefused) { expectRefused("", ""); }

TEST_F(HostileDocument, InvalidUtf8IsMended) {
  expectWithinBounds("<Variants><VariantSet name='\xC3('/></Variants>",
                     [] { return managerDump() == "set \xEF\xBF\xBD(\n"; });
}

TEST_F(HostileDocument, AttributeOfAHundredMegabytes) {
  const std::size_t length = 100u * 1024 * 1024;
  expectWithinBounds(
      "<Variants><VariantSet name='S' comment='" + std::string(length, 'x') + "'/></Variants>",
      [&] {
        const kuVariantSet* set = kuVariants::findVariantSet("S");
        return set && std::size_t(set->getComment().size()) == length;
      });
}

}  // namespace
