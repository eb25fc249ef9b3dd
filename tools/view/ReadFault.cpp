#include "ReadFault.h"

#include <QFile>
#include <QRegularExpression>
#include <algorithm>

namespace {

struct Rule {
  const char* report; // a pattern of the message
  const char* advice; // with the pattern's groups as %1 and %2
};

/// The more telling of several messages about one fault comes first.
const Rule rules[] = {
  {"^Missing terminating quote-character", "a text that is opened here or before is not closed; end it with a quote"},
  {"^Couldn't read value for field \"([^\"]*)\"$", "\"%1\" is no field here; correct the name"},
  {"^Unknown enumeration value \"(.*)\"", "\"%1\" is no value of this field; correct the value"},
  {"^Invalid value \"(.*)\" for field \\(must be TRUE or FALSE\\)",
   "\"%1\" is no value of this field; write TRUE or FALSE"},
  {"^Couldn't read value for field \"([^\"]*)\" of (\\w+)$",
   "the value of field \"%1\" of %2 cannot be read; correct the value"},
  {"^Not a valid Inventor file", "the header is missing; write \"#Inventor V2.1 ascii\" into the first line"},
  {"^Node type ``(.*)'' not recognized", "there is no class \"%1\"; correct the name"},
  {"^Expected '\\{'; got '(.*)'$",
   "the word before '%1' is neither a field nor the class of an element; correct the word"},
  {"^Premature end of file", "the file ends before its last element does; close every { with a }"},
  {"^Unknown reference \"(.*)\"", "USE names \"%1\", which no DEF before it does; correct the name"},
  {"^Type '(.*)' is not derived from", "a node of class %1 cannot stand here; take it out"},
  {"^Erroneous character\\(s\\) after end of scenegraph: \"(.*?)\"",
   "nothing is read from this '%1' on; take out what is wrong there"},
};

struct Fault {
  QString advice;
  QString word; // of the file, as the message names it; empty when it names none
};

bool apply(const Rule& rule, const QString& text, Fault& fault)
{
  const QRegularExpressionMatch match = QRegularExpression(rule.report).match(text);
  if (match.hasMatch()) {
    fault.word = match.captured(1);
    fault.advice = rule.advice;
    fault.advice.replace("%1", fault.word).replace("%2", match.captured(2));
  }
  return match.hasMatch();
}

/// The place of the fault when the reader reports it at \a line: it may stand behind the word it names, or behind
/// the last line.
int findLine(const QString& fileName, const QString& word, int line)
{
  QFile file(fileName);
  if (!file.open(QIODevice::ReadOnly)) {
    return line;
  }
  static const QRegularExpression name("^\\w+$"); // a mere character may stand on any line
  const bool hasName = name.match(word).hasMatch();
  const QRegularExpression wholeWord("\\b" + word + "\\b");
  int number = 0;
  int found = 0;
  while (number < line && !file.atEnd()) {
    ++number;
    const QString text = QString::fromLatin1(file.readLine());
    if (hasName && text.contains(wholeWord)) {
      found = number;
    }
  }
  return found != 0 ? found : std::max(number, 1);
}

/// The library's messages give their advice in a sentence of its own; here all of it stands in the middle of one.
QString joinSentences(const QString& text)
{
  QStringList sentences = text.split(". ");
  for (QString& sentence : sentences) {
    sentence = sentence.left(1).toLower() + sentence.mid(1);
  }
  QString joined = sentences.join("; ");
  joined.chop(joined.endsWith('.') ? 1 : 0);
  return joined;
}

} // namespace

QString ReadFault::explain(const Messages& messages)
{
  const std::vector<Messages::Message>& all = messages.getAll();
  const auto first = std::find_if(all.begin(), all.end(), [](const Messages::Message& m) { return m.line != 0; });
  if (first == all.end()) {
    return QString();
  }
  // The reader reports a fault once more for each level that it gives up.
  const auto last = std::find_if(first, all.end(), [first](const Messages::Message& m) {
    return m.line != first->line || m.fileName != first->fileName;
  });
  Fault fault;
  const auto matches = [&](const Rule& rule) {
    return std::any_of(first, last, [&](const Messages::Message& m) { return apply(rule, m.text, fault); });
  };
  if (std::none_of(std::begin(rules), std::end(rules), matches)) {
    fault.advice = joinSentences(first->text);
    if (first != all.begin()) {
      fault.advice += QString(" (%1)").arg(joinSentences(std::prev(first)->text)); // its reason
    }
    else if (!fault.advice.contains("; ")) {
      fault.advice += "; correct the file there";
    }
  }
  return QString("\"%1\", line %2: %3.")
    .arg(first->fileName)
    .arg(findLine(first->fileName, fault.word, first->line))
    .arg(fault.advice);
}
