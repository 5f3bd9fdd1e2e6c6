#pragma once

#include <functional>
#include <string>
#include <vector>

#include "standalone/kernel/MessageWatch.h"

/**
 * Every message that passed over the bus since it was made, each as one line of text:
 *
 *   variantsNodesChanged/1 variantName:string=Roof visible:strings=[Open] parent:string=Car
 *   updateMaterials/1 bare        (sent without a record)
 *   #65536                        (a numbered message)
 *
 * The number behind the slash is the mode. The types are void*, string, chars (const char*), bool,
 * strings (std::vector<std::string>) and qstrings (std::vector<QString>). The attributes stand in
 * the order in which they were set.
 */
class MessageRecorder {
 public:
  /** Names what a void* points to; asked while the message is being sent. */
  using PointerName = std::function<std::string(const void*)>;

  explicit MessageRecorder(PointerName pointerName = {});

  const std::vector<std::string>& lines() const { return _lines; }
  /** The lines of messages of that name alone. */
  std::vector<std::string> linesOf(const std::string& name) const;
  void clear() { _lines.clear(); }

 private:
  std::string valueText(const boost::any& value) const;
  std::string line(const kuStandalone::PassedMessage& message) const;

  PointerName _pointerName;
  std::vector<std::string> _lines;
  kuStandalone::MessageWatch _watch;
};
