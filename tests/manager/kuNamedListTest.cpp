#include "manager/kuNamedList.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <vector>

#include "scene/kuNodeVariant.h"

namespace {

/** A list beside a plain vector that goes through the same and is searched from its start. */
class Walked {
 public:
  explicit Walked(unsigned seed) : _random(seed) {}

  void step() {
    const unsigned kind = number(100);
    if (kind < 45 || _plain.empty()) return append();
    if (kind < 70) return remove();
    if (kind < 99) return rename();
    list.clear();
    _plain.clear();
  }

  void compare() const {
    EXPECT_EQ(list.entries(), _plain);
    for (const char* name : names)
      compare(name);
  }

  kuNamedList<kuNodeVariant> list;

 private:
  static constexpr const char* names[] = {"", "Roof", "roof", "Door", "Dach\xc3\xa4", "absent"};

  unsigned number(std::size_t below) {
    return std::uniform_int_distribution<unsigned>(0, unsigned(below) - 1)(_random);
  }
  QString anyName() { return QString::fromUtf8(names[number(5)]); }
  kuNodeVariant* any() { return _plain[number(_plain.size())]; }

  void append() {
    auto* entry = new kuNodeVariant;
    entry->setName(anyName());
    list.append(entry);
    _plain.push_back(entry);
  }

  void remove() {
    const std::unique_ptr<kuNodeVariant> entry(any());
    list.remove(entry.get());
    _plain.erase(std::find(_plain.begin(), _plain.end(), entry.get()));
    entry->setName(anyName());  // nobody listens any more
  }

  void rename() { any()->setName(anyName()); }

  void compare(const char* text) const {
    const QString name = QString::fromUtf8(text);
    const auto bears = [&](const kuNodeVariant* entry) { return entry->getName() == name; };
    const auto found = std::find_if(_plain.begin(), _plain.end(), bears);
    kuNodeVariant* expected = name.isEmpty() || found == _plain.end() ? nullptr : *found;
    EXPECT_EQ(list.find(name), expected) << text;
    EXPECT_EQ(list.first(name), found == _plain.end() ? nullptr : *found) << text;
    EXPECT_EQ(list.count(name), std::count_if(_plain.begin(), _plain.end(), bears)) << text;
  }

  std::mt19937 _random;
  std::vector<kuNodeVariant*> _plain;
};

}  // namespace

TEST(kuNamedListTest, AnswersWhatAWalkAnswersAfterAnySequenceOfChanges) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    Walked walked(seed);
    for (int i = 0; i < 500 && !testing::Test::HasFailure(); ++i) {
      walked.step();
      walked.compare();
    }
    walked.list.clear();
  }
}

TEST(kuNamedListTest, ContainsTellsEntriesFromOthers) {
  kuNamedList<kuNodeVariant> list;
  auto* entry = new kuNodeVariant;
  const kuNodeVariant other;
  EXPECT_FALSE(list.contains(entry));
  list.append(entry);
  EXPECT_TRUE(list.contains(entry));
  EXPECT_FALSE(list.contains(&other));
  list.clear();
  EXPECT_FALSE(list.contains(&other));
}

TEST(kuNamedListTest, CopyOfAnEntryDoesNotDisturbTheList) {
  kuNamedList<kuNodeVariant> list;
  auto* entry = new kuNodeVariant;
  entry->setName("Roof");
  list.append(entry);
  kuNodeVariant copy(*entry);
  copy.setName("Door");
  EXPECT_EQ(list.find("Roof"), entry);
  EXPECT_EQ(list.find("Door"), nullptr);
  *entry = copy;
  EXPECT_EQ(list.find("Roof"), nullptr);
  EXPECT_EQ(list.find("Door"), entry);
  list.clear();
}
