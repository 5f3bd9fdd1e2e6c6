#include "HostileTexts.h"

namespace {

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
    {"Try", "try:\n  sentinel()\nfinally:\n  pass", true},
    {"Def", "def ran(): pass", true},
    {"AsyncDef", "async def ran(): pass", true},
    {"Class", "class ran: pass", true},
    {"Decorator", "@sentinel\ndef f(): pass", true},
    {"DecoratedClass", "@sentinel\nclass C: pass", true},
    {"Global", "global ran\nran = 1", true},
    {"Delete", "ran = other = 1\ndel other", true},
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
    {"CodingThatRunsACodec", "# coding: unicode_escape\n\\x72an = 1", false},
    {"CodingUtf7", "# coding: utf-7\n+AHI-an = 1", false},
};

const std::vector<HostileText> kExpressions = {
    {"Walrus", "(ran := 1)", true},
    {"Lambda", "(lambda: sentinel())()", true},
    {"ListComprehension", "[sentinel() for i in (1,)]", true},
    {"SetComprehension", "{sentinel() for i in (1,)}", true},
    {"DictComprehension", "{1: sentinel() for i in (1,)}", true},
    {"FormattedText", "f\"{sentinel()}\"", true},
    {"CallOfAnAttribute", "sentinel.__call__()", true},
    {"CallOfAnItem", "[sentinel][0]()", true},
    {"CallOfACall", "(lambda: sentinel)()()", true},
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
    {"BadUtf8", "sentinel('\xFF')", false},
    {"OverlongUtf8", "sentinel('\xC0\xA7')", false},
};

const std::vector<HostileText> kArguments = {
    {"WalrusArgument", "sentinel(ran := 1)", true},
    {"LambdaArgument", "sentinel(lambda: 1)", true},
    {"GeneratorArgument", "sentinel(i for i in (1,))", true},
    {"StarredArgument", "sentinel(*(1, 2))", true},
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
      {"WideTuple", deep("a,"), false},
      {"ManyNames", times(tooMany, "a\n"), false},
      {"TooManyArguments", "sentinel(" + times(32, "1,") + "1)", true},
      {"TooManyStatements", times(tooMany, "sentinel()\n"), true},
      {"TooLongALine", "sentinel()#" + std::string(64 * 1024, 'a'), true},
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
