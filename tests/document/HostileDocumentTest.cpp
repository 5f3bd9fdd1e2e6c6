// Each document is read in a process of its own, which measures the processor time and the memory
// that the reading takes: its peak during the read over what the process held just before.

#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QBuffer>
#include <QImage>
#include <ctime>
#include <fstream>
#include <functional>

#include "ReaderTest.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuNodeVariant.h"

namespace {

constexpr double megabyte = 1024 * 1024;
constexpr double secondsAllowed = 10;  // of the processor

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
// Red zones, shadow memory and freed blocks that are held back count too.
constexpr double sanitizerFactor = 2.5;
#else
constexpr double sanitizerFactor = 1;
#endif

/**
 * How much memory a read may take at its peak: a multiple of the text, and what a process takes
 * anyway, which counts with small documents. For a large one it is the multiple alone, with a tenth
 * or so to spare over what was measured: nearly all of it is the parser's tree.
 */
struct Bound {
  double timesTheText;
  double bytes;
};

constexpr Bound smallDocument{0, 8 * megabyte};

Bound times(double text) { return {text, 0}; }

double statusBytes(const std::string& key) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    double kilobytes = 0;
    if (word == key + ":" && status >> kilobytes) return kilobytes * 1024;
  }
  return 0;
}

struct Measured {
  bool right = false;
  double seconds = 0;
  double peakBytes = 0;
};

Measured measured(const std::function<void()>& work, const std::function<bool()>& isRight) {
  malloc_trim(0);
  std::ofstream("/proc/self/clear_refs") << "5";  // the peak starts anew
  const double before = statusBytes("VmRSS");
  const std::clock_t start = std::clock();
  work();
  const double seconds = double(std::clock() - start) / CLOCKS_PER_SEC;
  const double peak = statusBytes("VmHWM") - before;
  return {isRight(), seconds, peak};
}

class HostileDocument : public ReaderTest {
 protected:
  /** Reads the text in a child; @p isRight looks at the result there. */
  void expectWithin(const Bound& bound, const std::string& text,
                    const std::function<bool()>& isRight) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
      alarm(60);
      const Measured result = measured([&] { readText(text); }, isRight);
      _exit(write(ends[1], &result, sizeof result) == sizeof result ? 0 : 1);
    }
    close(ends[1]);
    Measured result;
    const ssize_t received = ::read(ends[0], &result, sizeof result);
    close(ends[0]);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_EQ(received, ssize_t(sizeof result)) << "status " << status;
    EXPECT_TRUE(result.right);
    EXPECT_LT(result.seconds, secondsAllowed);
    const double allowed = bound.timesTheText * double(text.size()) + bound.bytes;
    EXPECT_LT(result.peakBytes, sanitizerFactor * allowed);
    RecordProperty("seconds", std::to_string(result.seconds));
    RecordProperty("peakMegabytes", std::to_string(result.peakBytes / megabyte));
    RecordProperty("timesTheText", std::to_string(result.peakBytes / double(text.size())));
  }

  /** This error alone, and nothing read. */
  void expectRefused(const std::string& text, const std::string& error) {
    kuVariants::createVariantSet("Kept", false, nullptr);
    expectWithin(smallDocument, text, [&] {
      return managerDump() == "set Kept\n" && messages.lines().empty() &&
             log == std::vector<std::string>{"error: Error loading variants: " + error};
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
  expectWithin(times(42), text + "</Variants>", [] {
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
  expectWithin(times(44), text + "</NodeVariant></Variants>",
               [] { return kuVariants::findNodeVariant("V")->getOptions().size() == 100000; });
}

TEST_F(HostileDocument, OneSetWithManyReferences) {
  std::string text = "<Variants><VariantSet name='S'>";
  for (int i = 0; i < 100000; ++i)
    text += "<LightVariantRef ref='Light " + std::to_string(i) + "'/>";
  expectWithin(times(34), text + "</VariantSet></Variants>",
               [] { return kuVariants::findVariantSet("S")->getLightVariants().size() == 100000; });
}

TEST_F(HostileDocument, OneSetWithManyStatelessSceneplates) {
  std::string text = "<Variants><VariantSet name='S'>";
  for (int i = 0; i < 5000; ++i)
    text += "<OverlayRef ref='Plate " + std::to_string(i) + "'/>";
  expectWithin({40, 8 * megabyte}, text + "</VariantSet></Variants>", [] {
    return kuVariants::getOverlayVariants().size() == 5000 &&
           kuVariants::findVariantSet("S")->getOverlayVariants().back().getState() == "!Enable";
  });
}

TEST_F(HostileDocument, ManyGroupsOfOneSet) {
  std::string text = "<Variants>";
  for (int i = 0; i < 30000; ++i) {
    const std::string name = std::to_string(i);
    text += "<VariantGroup name='G" + name + "'><VariantSet name='S" + name +
            "'/><VariantSet name='T" + name + "'/></VariantGroup>";
  }
  expectWithin(times(55), text + "</Variants>", [] {
    return kuVariants::getVariantGroups().size() == 30000 &&
           kuVariants::findVariantSet("T29999")->getGroup() ==
               kuVariants::findVariantGroup("G29999");
  });
}

TEST_F(HostileDocument, HotkeyOfTenMegabytes) {
  std::string keys;
  for (int i = 0; i < 2500000; ++i)
    keys += "F1, ";
  expectWithin(
      times(14),
      "<Variants><VariantSet name='S'><Hotkey>" + keys + "</Hotkey></VariantSet></Variants>",
      [] { return kuVariants::findVariantSet("S")->getShortcutKey() == Qt::Key_F1; });
}

/** A file of a few kilobytes that holds a picture of one colour. */
QByteArray pictureFile(int width, int height) {
  QImage picture(width, height, QImage::Format_Mono);
  picture.fill(0);
  QBuffer file;
  file.open(QIODevice::WriteOnly);
  picture.save(&file, "PNG");
  return file.data();
}

class HostilePreview : public HostileDocument,
                       public ::testing::WithParamInterface<std::pair<int, int>> {};

TEST_P(HostilePreview, IsStoredAndNotDecoded) {
  const QByteArray file = pictureFile(GetParam().first, GetParam().second);
  const std::string text = "<Variants><VariantSet name='S'><Preview><![CDATA[" +
                           file.toBase64().toStdString() + "]]></Preview></VariantSet></Variants>";
  expectWithin(smallDocument, text, [&] {
    return !file.isEmpty() && kuVariants::findVariantSet("S")->getPreview() == file;
  });
}

INSTANTIATE_TEST_SUITE_P(Sides, HostilePreview,
                         ::testing::Values(std::pair{20000, 20000}, std::pair{60000, 2000},
                                           std::pair{2000, 60000}, std::pair{4096, 4096}));

TEST_F(HostileDocument, DeepNestingIsRefused) {
  expectRefused(nested(100000, ""), "\"elements are nested too deeply\" at 1 10490");
}

TEST_F(HostileDocument, EntityBombIsRefused) {
  std::string text = "<!DOCTYPE a [<!ENTITY a0 'aaaaaaaaaa'>";
  for (int i = 1; i < 9; ++i) {
    const std::string one = "&a" + std::to_string(i - 1) + ";";
    text += "<!ENTITY a" + std::to_string(i) + " '" + one + one + one + one + one + one + "'>";
  }
  expectRefused(text + "]><Variants>&a8;</Variants>",
                "\"entity declarations are not allowed\" at 1 14");
}

TEST_F(HostileDocument, InvalidUtf8IsMended) {
  expectWithin(smallDocument, "<Variants><VariantSet name='\xC3('/></Variants>",
               [] { return managerDump() == "set \xEF\xBF\xBD(\n"; });
}

TEST_F(HostileDocument, AttributeOfAHundredMegabytes) {
  const std::size_t length = 100u * 1024 * 1024;
  expectWithin(
      times(3),
      "<Variants><VariantSet name='S' comment='" + std::string(length, 'x') + "'/></Variants>",
      [&] {
        const kuVariantSet* set = kuVariants::findVariantSet("S");
        return set && std::size_t(set->getComment().size()) == length;
      });
}

}  // namespace
