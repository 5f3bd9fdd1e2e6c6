#include "HostileTexts.h"

#include <Python.h>

namespace {

// What older interpreters cannot read does not bite there.
constexpr bool kHasWalrus = PY_VERSION_HEX >= 0x03080000;
constexpr bool kHasMatch = PY_VERSION_HEX >= 0x030A0000;
constexpr bool kHasGroups = PY_VERSION_HEX >= 0x030B0000;

std::string times(int count, const std::string& text) {
  std::string result;
  for (int i = 0; i < count; ++i)
    result += text;
  return result;
}

const std::vector<HostileText> kStatements = {
    {"Assignment", "ran = 1", true},
    {"AugmentedAssignment", "ran = 0\nran += 1", true},
    {"AnnotatedAssignment", "ran: int = 1", true},
    {"Unpacking", "ran, other = 1, 2", true},
    {"AssignmentToTrue", "true = ran = 1", true},
    {"Import", "import os as ran", true},
    {"ImportFrom", "from os import path as ran", true},
    {"ImportOfEverything", "from os.path import *\nsentinel()", true},
    {"FutureImport", "from __future__ import division as ran", true},
    {"If", "if true:\n  sentinel()", true},
    {"While", "while true:\n  sentinel()\n  break", true},
    {"For", "for ran in (1,):\n  pass", true},
    {"With", "with open('/dev/null') as ran: pass", true},
    {"TryGroup", "try:\n  sentinel()\nexcept* ValueError:\n  pass", kHasGroups},
    {"Match", "match 1:\n  case ran: pass", kHasMatch},
    {"Try", "try:\n  sentinel()\nfinally:\n  pass", true},
    {"Def", "def ran(): pass", true},
    {"AsyncDef", "async def ran(): pass", true},
    {"AsyncFor", "async def ran():\n  async for i in sentinel(): pass", true},
    {"AsyncWith", "async def ran():\n  async with sentinel(): pass", true},
    {"DefWithADefault", "def f(a=sentinel()): pass", true},
    {"DefWithAnAnnotation", "def f(a: sentinel()): pass", true},
    {"ClassOfAKind", "class C(metaclass=lambda *a: sentinel()): pass", true},
    {"Class", "class ran: pass", true},
    {"Decorator", "@sentinel\ndef f(): pass", true},
    {"DecoratedClass", "@sentinel\nclass C: pass", true},
    {"Global", "global ran\nran = 1", true},
    {"Delete", "ran = other = 1\ndel other", true},
    {"DeleteOfACommand", "del sentinel, ran", false},
    {"ItemAssignment", "globals()['ran'] = 1", true},
    {"AttributeAssignment", "import sys as ran\nran.a = 1", true},
    {"StarredAssignment", "*ran, = 1,", true},
    {"ImportRelative", "from . import ran", false},
    {"Return", "return sentinel()", false},
    {"Nonlocal", "nonlocal ran\nran = 1", false},
    {"Break", "sentinel()\nbreak", false},
    {"TypeComment", "ran = 1 # type: int", true},
    {"Assert", "assert not sentinel()", true},
    {"Raise", "raise Exception(sentinel())", true},
    {"Pass", "pass", false},
    {"TextAlone", "\"sentinel()\"", false},
    {"NameAlone", "sentinel", false},
    {"NumberAlone", "1", false},
    {"Await", "await sentinel()", false},
    {"Yield", "yield sentinel()", false},
    {"Unfinished", "sentinel(", false},
    {"UnfinishedText", "sentinel(\"\"\"a", false},
    {"Indented", "  ran = 1", false},
};

const std::vector<HostileText> kJoined = {
    {"CommandBeforeIt", "sentinel()\nran = 1", true},
    {"CommandBehindIt", "ran = 1\nsentinel()", true},
    {"SemicolonImport", "sentinel(true);import os as ran", true},
    {"NameThatClosesTheCall", "sentinel('');import os as ran#')", true},
    {"NameThatClosesNothing", "');import os as ran", false},
    {"LineContinuation", "sentinel()\\\n;ran = 1", true},
    {"CallOverTwoLines", "sentinel(\n);ran = 1", true},
    {"BehindAComment", "# sentinel()\nran = 1", true},
    {"BehindACommentAndCarriageReturn", "#\rran = 1", true},
    {"BehindAFormFeed", "\fran = 1", true},
    {"BehindAVerticalTab", "\vran = 1", false},
    {"BehindAByteOrderMark", "\xEF\xBB\xBFran = 1", false},
    {"BehindACommandAndAByteOrderMark", "sentinel()\xEF\xBB\xBF;ran = 1", false},
    {"BehindANextLineSign", "#\xC2\x85ran = 1\nran = 1", true},
    {"LineContinuationInAComment", "# \\\nran = 1", true},
    {"LineContinuationInAText", "sentinel('a\\\n');ran = 1", true},
    {"LineContinuationOfNothing", "ran = 1\n\\", false},
    {"BracketInAText", "sentinel('(');ran = 1#')", true},
    {"TextInThreeQuotes", "sentinel('''a''');ran = 1#''')", true},
    {"EscapedQuote", "sentinel('\\\\');ran = 1#')", true},
    {"CodingLatin1", "# -*- coding: latin-1 -*-\nran = '\xC3\xA4'", true},
    {"CodingOnTheSecondLine", "\n# vim: set fileencoding=utf-7 :\n+AHI-an = 1", false},
    {"CodingThatRunsACodec", "# coding: unicode_escape\n\\x72an = 1", false},
    {"CodingUtf7", "# coding: utf-7\n+AHI-an = 1", false},
};

const std::vector<HostileText> kExpressions = {
    {"Walrus", "(ran := 1)", kHasWalrus},
    {"Lambda", "(lambda: sentinel())()", true},
    {"ListComprehension", "[sentinel() for i in (1,)]", true},
    {"SetComprehension", "{sentinel() for i in (1,)}", true},
    {"DictComprehension", "{1: sentinel() for i in (1,)}", true},
    {"FormattedText", "f\"{sentinel()}\"", true},
    {"CallOfAnAttribute", "sentinel.__call__()", true},
    {"CallOfAnItem", "[sentinel][0]()", true},
    {"CallOfACall", "(lambda: sentinel)()()", true},
    {"CallOfWhatACommandAnswers", "sentinel()()", true},
    {"CallOfWhatACallAnswers", "findNodePath('A')()", false},
    {"GeneratorAlone", "all(sentinel() for i in (1, 2))", true},
    {"AsyncComprehension", "[sentinel() async for i in ran]", false},
    {"FormattedTextWithinAnother", "f'{f\"{sentinel()}\"}'", true},
    {"FormattedTextWithASpecification", "f'{1:{sentinel() or 1}}'", true},
    {"FormattedTextThatTellsItself", "f'{sentinel()=}'", kHasWalrus},
    {"FormattedRawText", "rf'{sentinel()}'", true},
    {"SliceOfAnItem", "[1][0:sentinel()]", true},
    {"ItemOfTheGlobalNames", "globals()['sentinel']()", true},
    {"Starred", "[*(sentinel(),)]", true},
    {"Matrix", "sentinel() @ 1", true},
    {"WalrusInAConditional", "1 if (ran := 1) else 0", kHasWalrus},
    {"Conditional", "sentinel() if True else 0", true},
    {"And", "true and sentinel()", true},
    {"Or", "false or sentinel()", true},
    {"Not", "not sentinel()", true},
    {"Comparison", "sentinel() == 1", true},
    {"Tuple", "sentinel(), sentinel()", true},
    {"List", "[sentinel()]", true},
    {"Attribute", "sentinel().__class__", true},
    {"Print", "print(sentinel())", true},
    {"Eval", "eval('sentinel()')", true},
    {"Exec", "exec('ran = 1')", true},
    {"ImportFunction", "globals().update(ran=__import__('os'))", true},
    {"GetAttribute", "getattr(sentinel, '__call__')()", true},
    {"VectorAlone", "Vec3f(1, 2, 3)", false},
    {"UnknownFunction", "unknown()", false},
    {"CyrillicLetter", "s\xD0\xB5ntinel()", false},
    {"WideLettersInAnAssignment",
     "\xEF\xBD\x92"
     "an = 1",
     true},
    {"WideBracket", "sentinel\xEF\xBC\x88)", false},
    {"WideQuotes", "sentinel(\xEF\xBC\x87\xEF\xBC\x87)", false},
    {"CurvedQuotes", "sentinel(\xE2\x80\x98\xE2\x80\x99)", false},
    {"NoBreakSpace", "sentinel(\xC2\xA0)", false},
    {"ZeroWidthSpace", "sentinel\xE2\x80\x8B()", false},
    {"RightToLeft", "sentinel(\xE2\x80\xAE)", false},
    {"MathematicalLetterOfADunder",
     "sentinel.__\xF0\x9D\x93\xAC"
     "all__()",
     true},
    {"WideLettersOfABuiltin", "\xEF\xBD\x85xec('ran = 1')", true},
    {"BadUtf8", "sentinel('\xFF')", false},
    {"OverlongUtf8", "sentinel('\xC0\xA7')", false},
};

const std::vector<HostileText> kArguments = {
    {"WalrusArgument", "sentinel(ran := 1)", kHasWalrus},
    {"LambdaArgument", "sentinel(lambda: 1)", true},
    {"GeneratorArgument", "sentinel(i for i in (1,))", true},
    {"StarredArgument", "sentinel(*(1, 2))", true},
    {"StarredArgumentAmongOthers", "sentinel(1, *(2,), 3)", true},
    {"StarredKeywordsOfNames", "sentinel(**globals())", true},
    {"AwaitArgument", "sentinel(await 1)", false},
    {"YieldArgument", "sentinel((yield))", false},
    {"AttributeOfAText", "sentinel('a'.upper())", true},
    {"AttributeOfANumber", "sentinel((1).real)", true},
    {"MethodThatFormats", "sentinel('{0.__class__}'.format(1))", true},
    {"SliceArgument", "sentinel('ab'[::-1])", true},
    {"ComparisonArgument", "sentinel(1 < 2)", true},
    {"Repetition", "sentinel('a' * 9)", true},
    {"Shift", "sentinel(1 << 9)", true},
    {"WalrusWithinAVector", "sentinel(Vec3f((ran := 1), 2, 3))", kHasWalrus},
    {"VectorInWideDigits", "sentinel(Vec3f(\xEF\xBC\x91, 2, 3))", false},
    {"VectorOfCommands", "sentinel(Vec3f(sentinel(), 2, 3))", true},
    {"NodeClassArgument", "sentinel(kuNodePtr())", true},
    {"NestedPath", "sentinel(findNodePath('A'))", true},
    {"DoubleStarredArgument", "sentinel(**{})", true},
    {"KeywordArgument", "sentinel(a=1)", true},
    {"KeywordNamedAsAClass", "sentinel(__class__=1)", true},
    {"FormattedArgument", "sentinel(f\"{1}\")", true},
    {"FormattedPart", "sentinel('a' f\"{1}\")", true},
    {"NestedCall", "sentinel(sentinel())", true},
    {"NestedGetter", "sentinel(getClippingHideScene())", true},
    {"DunderArgument", "sentinel(sentinel.__class__)", true},
    {"AttributeOfTrue", "sentinel(true.real)", true},
    {"ItemArgument", "sentinel('ab'[0])", true},
    {"ConditionalArgument", "sentinel(1 if True else 0)", true},
    {"OrArgument", "sentinel(True or 1)", true},
    {"NotArgument", "sentinel(not True)", true},
    {"Inversion", "sentinel(~1)", true},
    {"PlusSign", "sentinel(+1)", true},
    {"TwoMinusSigns", "sentinel(--1)", true},
    {"MinusTrue", "sentinel(-True)", true},
    {"MinusText", "sentinel(-'a')", false},
    {"Concatenation", "sentinel('a' + 'b')", true},
    {"Formatting", "sentinel('%s' % 1)", true},
    {"Product", "sentinel(2 * 3)", true},
    {"Power", "sentinel(10 ** 2)", true},
    {"Bytes", "sentinel(b'x')", true},
    {"Complex", "sentinel(1j)", true},
    {"Ellipsis", "sentinel(...)", true},
    {"ListArgument", "sentinel([1])", true},
    {"TupleArgument", "sentinel((1, 2))", true},
    {"DictArgument", "sentinel({})", true},
    {"SetArgument", "sentinel({1})", true},
    {"UnknownName", "sentinel(__name__)", true},
    {"Debug", "sentinel(__debug__)", true},
    {"FunctionArgument", "sentinel(sentinel)", true},
    {"LoneSurrogate", "sentinel('\\ud800')", true},
    {"VectorWithoutNumbers", "sentinel(Vec3f())", true},
    {"VectorOfFourNumbers", "sentinel(Vec3f(1, 2, 3, 4))", false},
    {"VectorOfTexts", "sentinel(Vec3f('1', 2, 3))", false},
    {"VectorOfFlags", "sentinel(Vec3f(True, 2, 3))", true},
    {"VectorOfKeywords", "sentinel(Vec3f(x=1, y=2, z=3))", true},
    {"VectorOfSums", "sentinel(Vec3f(1 + 1, 2, 3))", true},
    {"VectorOfAVector", "sentinel(Vec3f(Vec3f(1, 2, 3).x, 2, 3))", true},
    {"VectorStarred", "sentinel(Vec3f(*(1, 2, 3)))", true},
    {"VectorMethod", "sentinel(Vec3f(1, 2, 3).__len__())", true},
};

const std::vector<HostileText> kSetActive = {
    {"SetActiveOfACall", "findNodePath('A').setActive(sentinel())", true},
    {"SetActiveOfANumber", "sentinel(), findNodePath('A').setActive(1)", true},
    {"SetActiveOfOne", "findNodePath('A').setActive(1)", false},
    {"SetActiveWithoutFlag", "findNodePath('A').setActive()", false},
    {"SetActiveByKeyword", "findNodePath('A').setActive(active=true)", false},
    {"SetActiveNotCalled", "findNodePath('A').setActive", false},
    {"SetActiveOfWhatItAnswers", "findNodePath('A').setActive(true).x", false},
    {"SetActiveTwice", "findNodePath('A').setActive(true).setActive(true)", false},
    {"SetActiveOfAnotherFunction", "sentinel('A').setActive(true)", true},
    {"SetActiveOfAPathPutTogether", "findNodePath('A' + '').setActive(true)", false},
    {"SetActiveOfANumberAsPath", "findNodePath(1).setActive(true)", false},
    {"SetActiveOfTwoPaths", "findNodePath('A', 'B').setActive(true)", false},
    {"OtherMethod", "findNodePath('A').getName()", false},
    {"DunderMethod", "findNodePath('A').__init__(true)", false},
};

/** A piece so often that it fills nearly the longest line that is read at all. */
std::string deep(const std::string& piece) {
  return times(60000 / static_cast<int>(piece.size()), piece);
}

/** What could exhaust the interpreter's reader. */
std::vector<HostileText> boundless() {
  const int half = 30000;
  const int tooMany = 100001;
  return {
      {"EndlessNumber", "sentinel(" + deep("9") + ")", false},
      {"EndlessNumberWithUnderscores", "sentinel(" + deep("9_9") + ")", false},
      {"EndlessFraction", "sentinel(0." + deep("3") + ")", true},
      {"EndlessHexadecimalNumber", "sentinel(0x" + deep("f") + ")", true},
      {"NumberBeyond64Bits", "sentinel(9223372036854775808)", true},
      {"InfiniteNumber", "sentinel(1e999)", true},
      {"VectorBeyondFloat", "sentinel(Vec3f(1e300, 0, 0))", true},
      {"DeepParentheses", times(half, "(") + "sentinel()" + times(half, ")"), false},
      {"DeepOpenParentheses", deep("("), false},
      {"DeepOpenParenthesesOverManyLines", times(tooMany, "(\n"), false},
      {"DeepBrackets", "sentinel(" + times(half, "[") + times(half, "]") + ")", false},
      {"DeepMinusSigns", "sentinel(" + deep("-") + "1)", false},
      {"DeepNot", "sentinel(" + deep("not ") + "1)", false},
      {"DeepAttributes", "sentinel" + deep(".a") + "()", false},
      {"DeepAttributesOverManyLines", "(sentinel" + times(tooMany, "\n.a") + ")()", false},
      {"DeepCalls", "sentinel" + deep("()"), false},
      {"DeepItems", "sentinel" + deep("[0]"), false},
      {"DeepSum", "sentinel(1" + deep("+1") + ")", false},
      {"DeepPower", "sentinel(1" + deep("**1") + ")", false},
      {"DeepLambda", "sentinel(" + deep("lambda:") + "1)", false},
      {"DeepConditional", "sentinel(" + deep("1 if 1 else ") + "1)", false},
      {"DeepIndentation", deep("if 1:\n"), false},
      {"DeepCallsInside", deep("sentinel("), false},
      {"DeepFormattedTexts", "sentinel(" + deep("f'{") + ")", false},
      {"DeepSubscripts", "sentinel(" + deep("a[") + ")", false},
      {"DeepBraces", "sentinel(" + deep("{") + ")", false},
      {"DeepWalruses", "sentinel(" + deep("(a:=") + ")", false},
      {"DeepTilde", "sentinel(" + deep("~") + "1)", false},
      {"WideComparison", "sentinel(1" + deep("<1") + ")", true},
      {"DeepElse", "if 1: pass\n" + times(4000, "elif 1: pass\n"), false},
      {"UnfinishedTextOfEscapes", "sentinel('" + deep("\\\\") + "\\')", false},
      {"ManyKeywords", "sentinel(" + deep("a=1,") + ")", false},
      {"ManyTextsSideBySide", "sentinel(" + deep("'a'f'{1}'") + ")", true},
      {"WideTuple", deep("a,"), false},
      {"ManyNames", times(tooMany, "a\n"), false},
      {"TooManyArguments", "sentinel(" + times(32, "1,") + "1)", true},
      {"TooManyStatements", times(tooMany, "sentinel()\n"), true},
      {"TooLongALine", "sentinel()#" + std::string(64 * 1024, 'a'), true},
      {"TenMegabytesOfAComment", "#" + std::string(10 << 20, 'a') + "\nran = 1", true},
      {"TenMegabytesOfAText", "sentinel('" + std::string(10 << 20, 'a') + "')", true},
      {"TenMegabytesOfLines", std::string(10 << 20, '\n') + "ran = 1", true},
      {"TenMegabytesOfBrackets", std::string(10 << 20, '('), false},
      {"TooLongAText", times(70, "sentinel()#" + std::string(60000, 'a') + "\n"), true},
      {"BehindManyCommands", times(20000, "sentinel()\n") + "ran = 1", true},
  };
}

std::vector<HostileText> all() {
  std::vector<HostileText> texts = boundless();
  for (const auto* part : {&kStatements, &kJoined, &kExpressions, &kArguments, &kSetActive}) {
    texts.insert(texts.end(), part->begin(), part->end());
  }
  return texts;
}

}  // namespace

const std::vector<HostileText>& hostileTexts() {
  static const std::vector<HostileText> texts = all();
  return texts;
}
