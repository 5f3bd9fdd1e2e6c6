#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

/**
 * The rules of a capture of materials over plain data, written down a second time: captures of the
 * library are held against it. Materials go by their number, nodes stand in the order of the scene.
 */
class MaterialModel {
 public:
  using Texts = std::vector<std::string>;

  struct Material {
    std::string name;
    bool isSwitch = false;
    std::vector<int> entries;
    unsigned choice = 0;
  };
  struct Node {
    std::string path;
    int material;
  };
  struct Set {
    std::string name;
    std::map<std::string, std::string> snapshots;
    std::vector<std::pair<std::string, std::string>> states;
  };

  std::vector<Material> materials;
  std::vector<Node> nodes;
  std::vector<Set> sets;
  /** How often each rule was met. */
  std::map<std::string, int> met;

  void capture(const std::string& setName);

  // As MaterialCaptureTest writes them.
  Texts setTexts() const;
  Texts switchTexts() const;
  Texts nodeTexts() const;

 private:
  /** What lives for the comparison of one node. */
  struct Comparison {
    int node;
    int material;
    int settled = -1;
    bool needsDuplicate = false;
    bool split = false;
  };

  void compare(int node, int material);
  void compareWith(Set& other, Comparison& at);
  void compareWithSwitch(Set& other, int otherSwitch, Comparison& at);
  bool isSharedOtherwise(const Set& other, const std::string& otherName, const Comparison& at);
  void split(Set& other, int otherSwitch, Comparison& at);
  void grow(int otherSwitch, Comparison& at);
  void settle(Comparison& at);
  void snapshot(int node, std::map<std::string, std::string>& snapshots);

  void takeState(int material);
  std::string variantOf(int material);
  void addState(Set& set, const std::string& variant, const std::string& state);
  static std::string stateOf(const Set& set, const std::string& variant);
  int newSwitch(std::vector<int> entries);
  void add(int target, int material);
  void show(int target, int material);

  const std::string& name(int material) const { return materials[std::size_t(material)].name; }
  bool isSwitch(int material) const { return materials[std::size_t(material)].isSwitch; }
  std::vector<int>& entries(int material) { return materials[std::size_t(material)].entries; }
  int find(const std::string& materialName) const;
  int firstOf(const std::string& path) const;
  bool equal(int a, int b);
  bool has(int target, int material);
  bool holds(int material, int searched, bool deep);

  std::map<std::string, std::string> _defaults;
  std::set<std::string> _handledPaths;
  std::set<int> _handled;
  int _newSwitches = 0;
};
