#include "model/kuKeyword.h"

#include <QLatin1String>
#include <algorithm>
#include <iterator>

namespace {

// By the value of the enumeration.
const QLatin1String Texts[] = {
    QLatin1String("!All"),         QLatin1String("!None"),     QLatin1String("!Enable"),
    QLatin1String("!Disable"),     QLatin1String("!Toggle"),   QLatin1String("!Next"),
    QLatin1String("!Next (Loop)"), QLatin1String("!Previous"), QLatin1String("!Previous (Loop)")};

static_assert(std::size(Texts) == std::size_t(kuKeyword::NoKeyword), "one text for each keyword");

}  // namespace

kuKeyword kuKeywordOf(const QString& text) {
  // Nearly every state is a plain name, and this is asked for every state that is selected.
  if (!text.startsWith(QLatin1Char('!'))) return kuKeyword::NoKeyword;
  const auto found = std::find(std::begin(Texts), std::end(Texts), text);
  return kuKeyword(found - std::begin(Texts));
}

QString kuKeywordText(kuKeyword keyword) {
  return keyword == kuKeyword::NoKeyword ? QString() : QString(Texts[int(keyword)]);
}
