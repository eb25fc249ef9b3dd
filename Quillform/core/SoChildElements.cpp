#include <Quillform/core/SoChildElements.h>

#include <Inventor/SoInput.h>
#include <Inventor/actions/SoAction.h>
#include <Inventor/errors/SoDebugError.h>
#include <Inventor/errors/SoReadError.h>
#include <Inventor/misc/SoChildList.h>
#include <Quillform/core/SoEventScope.h>
#include <Quillform/core/SoQuillform.h>
#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

namespace {

/// Dialog elements inside each other that a file may hold. Windows and layouts take stack for every level.
constexpr std::size_t maxDepth = 500;

/// The containers that are being read inside each other, from the outermost one on.
std::vector<const SoQuillform*> s_beingRead;

/// Puts one container among those that are being read.
class ReadLevel {
public:
  explicit ReadLevel(const SoQuillform* container)
  {
    s_beingRead.push_back(container);
  }
  ~ReadLevel()
  {
    s_beingRead.pop_back();
  }
  ReadLevel(const ReadLevel&) = delete;
  ReadLevel& operator=(const ReadLevel&) = delete;
};

bool isBeingRead(const SoQuillform* element)
{
  return std::find(s_beingRead.begin(), s_beingRead.end(), element) != s_beingRead.end();
}

bool contains(const SoQuillform* container, const SoQuillform* element)
{
  const SoChildElements* children = container->getChildElements();
  for (int i = 0; children && i < children->getNum(); i++) {
    if (children->get(i) == element || contains(children->get(i), element)) {
      return true;
    }
  }
  return false;
}

const char* nameOf(const SoNode* node)
{
  return node->getTypeId().getName().getString();
}

} // namespace

SoChildElements::SoChildElements(SoQuillform* owner, Rules rules) : m_owner(owner), m_rules(std::move(rules)) {}

SoChildElements::~SoChildElements()
{
  for (SoQuillform* element : m_elements) {
    if (element->getParent() == m_owner) {
      element->setParent(nullptr);
    }
  }
  for (SoQuillform* element : m_waiting) {
    element->unref();
  }
}

int SoChildElements::getNum() const
{
  return static_cast<int>(m_elements.size());
}

SoQuillform* SoChildElements::get(int index) const
{
  return index >= 0 && index < getNum() ? m_elements[static_cast<std::size_t>(index)] : nullptr;
}

int SoChildElements::find(const SoNode* child) const
{
  const auto found = std::find(m_elements.begin(), m_elements.end(), child);
  return found != m_elements.end() ? static_cast<int>(found - m_elements.begin()) : -1;
}

bool SoChildElements::isAcceptable(SoNode* child) const
{
  const char* const source = "SoChildElements::insert";
  auto* element = dynamic_cast<SoQuillform*>(child);
  if (!element || !child->isOfType(m_rules.childType())) {
    SoDebugError::post(source, "A %s cannot stand in a %s, which holds nodes of type %s only.", nameOf(child),
                       nameOf(m_owner), m_rules.childType().getName().getString());
    return false;
  }
  // While a file is read, inner groups have no parent yet.
  bool isAncestor = isBeingRead(element);
  for (const SoQuillform* ancestor = m_owner; ancestor; ancestor = ancestor->getParent()) {
    isAncestor = isAncestor || ancestor == element;
  }
  if (isAncestor || contains(element, m_owner)) {
    SoDebugError::post(source, "A %s cannot stand inside itself.", nameOf(child));
    return false;
  }
  if (element->getParent() && element->getParent()->getChildElements() &&
      element->getParent()->getChildElements()->find(element) >= 0) {
    SoDebugError::post(source,
                       "This %s (auditorID \"%s\") stands in a %s already. One node cannot be on the screen twice: "
                       "use a copy in the second place.",
                       nameOf(child), element->auditorID.getValue().getString(), nameOf(element->getParent()));
    return false;
  }
  return true;
}

bool SoChildElements::insert(SoNode* child, int index)
{
  if (!child || index < 0) {
    return false;
  }
  child->ref(); // a refused node that nobody holds is freed
  const bool accepted = isAcceptable(child);
  if (accepted) {
    auto* element = static_cast<SoQuillform*>(child);
    element->ref();
    m_waiting.push_back(element);
    m_elements.insert(m_elements.begin() + std::min(index, getNum()), element);
    element->setParent(m_owner);
    synchronize();
    m_rules.changed();
  }
  child->unref();
  return accepted;
}

void SoChildElements::append(SoNode* child)
{
  insert(child, getNum());
}

void SoChildElements::detach(SoQuillform* child)
{
  child->destroyWidget();
  // What hid it here, an unselected tab say, does not hide it elsewhere.
  const bool isHiddenHere = !m_owner->shows3D(child);
  const bool wasShown = child->isShown3D();
  child->setParent(nullptr);
  if (SoEventScope::isActive() && (wasShown || isHiddenHere)) {
    // It stands in the scene until the event is over, where nobody may see or pick it.
    child->show3D(0);
    SoEventScope::whenOver(child, [child] {
      if (!child->getParent() || child->getParent()->shows3D(child)) {
        child->show3D(1);
      }
    });
  }
  else if (isHiddenHere && !wasShown) {
    child->show3D(1);
  }
}

void SoChildElements::remove(int index)
{
  SoQuillform* child = get(index);
  if (child) {
    child->ref();
    detach(child);
    m_elements.erase(m_elements.begin() + index);
    synchronize();
    child->unref();
  }
  m_rules.changed();
}

void SoChildElements::removeAll()
{
  while (!m_elements.empty()) {
    SoQuillform* child = m_elements.back();
    child->ref();
    detach(child);
    m_elements.pop_back();
    if (m_elements.empty()) {
      synchronize();
    }
    child->unref();
  }
  m_rules.changed();
}

void SoChildElements::replace(int index, SoNode* child)
{
  if (!child) {
    return;
  }
  child->ref(); // a refused node that nobody holds is freed
  SoQuillform* old = get(index);
  if (old && old != child && isAcceptable(child)) {
    old->ref();
    detach(old);
    auto* element = static_cast<SoQuillform*>(child);
    element->ref();
    m_waiting.push_back(element);
    m_elements[static_cast<std::size_t>(index)] = element;
    element->setParent(m_owner);
    synchronize();
    old->unref();
    m_rules.changed();
  }
  child->unref();
}

void SoChildElements::synchronize()
{
  if (!SoEventScope::isActive()) {
    synchronizeNow();
  }
  else if (!m_isStale) {
    m_isStale = true;
    SoEventScope::whenOver(m_owner, [this] { synchronizeNow(); });
  }
}

void SoChildElements::synchronizeNow()
{
  SoChildList* kitChildren = m_owner->getChildren();
  // The usual change is one child more or less, so both ends that agree are left alone. The kit's own nodes
  // come first, and none of them is an element.
  int head = 0;
  const bool wasStale = std::exchange(m_isStale, false);
  while (head < kitChildren->getLength() && !dynamic_cast<SoQuillform*>((*kitChildren)[head])) {
    ++head;
  }
  if (!wasStale && m_waiting.size() == 1 && m_waiting[0] == m_elements.back() &&
      kitChildren->getLength() == head + getNum() - 1) {
    kitChildren->append(m_waiting[0]); // while a file is read, this is every change
    std::exchange(m_waiting, {})[0]->unref();
    return;
  }
  int same = 0;
  while (same < getNum() && head + same < kitChildren->getLength() && (*kitChildren)[head + same] == get(same)) {
    ++same;
  }
  int tail = 0;
  while (tail < getNum() - same && kitChildren->getLength() - tail > head + same &&
         (*kitChildren)[kitChildren->getLength() - 1 - tail] == get(getNum() - 1 - tail)) {
    ++tail;
  }
  while (kitChildren->getLength() - tail > head + same) {
    SoNode* leaving = (*kitChildren)[head + same];
    // One that only moves must outlive its absence from the list.
    if (find(leaving) >= 0) {
      leaving->ref();
      m_waiting.push_back(static_cast<SoQuillform*>(leaving));
    }
    kitChildren->remove(head + same);
  }
  for (int i = same; i < getNum() - tail; i++) {
    kitChildren->insert(get(i), head + i);
  }
  for (SoQuillform* element : std::exchange(m_waiting, {})) {
    element->unref();
  }
}

bool SoChildElements::refusesWord(SoInput* in) const
{
  SbName word;
  if (!in->read(word, TRUE) || word.getLength() == 0) {
    return false; // the element ends here
  }
  // What is put back must be what was read, blanks included: the input only steps back by its length.
  std::string taken = word.getString();
  const bool isReference = word == "DEF" || word == "USE";
  char next = '{';
  while (!isReference && in->get(next)) {
    taken += next;
    if (std::strchr(" \t\r\n,", next) == nullptr) {
      break;
    }
  }
  in->putBack(taken.c_str());
  if (next == '{' || next == '#') { // a comment may stand between the class name and its brace
    return false;
  }
  SoReadError::post(in, "\"%s\" is no field of %s, and no element follows", word.getString(),
                    m_owner->getTypeId().getName().getString());
  return true;
}

SbBool SoChildElements::readChildren(SoInput* in)
{
  const ReadLevel level(m_owner);
  if (s_beingRead.size() > maxDepth) {
    SoReadError::post(in, "More than %d dialog elements inside each other", static_cast<int>(maxDepth));
    return FALSE;
  }
  int announced = 0;
  if (in->isBinary() && !in->read(announced)) {
    SoReadError::post(in, "Premature end of file");
    return FALSE;
  }
  SbBool isRead = TRUE;
  for (int i = 0; !in->isBinary() || i < announced; i++) {
    if (!in->isBinary() && refusesWord(in)) {
      return FALSE;
    }
    SoBase* base = nullptr;
    const SbBool ok = SoBase::read(in, base, m_rules.childType());
    if (ok && base) {
      base->ref(); // a refused node may have no other reference
      if (!insert(static_cast<SoNode*>(base), getNum())) {
        SoReadError::post(in, "A %s is left out here", base->getTypeId().getName().getString());
      }
      base->unref();
      continue;
    }
    isRead = isRead && ok;
    if (in->isBinary()) {
      if (ok) {
        SoReadError::post(in, "A child is missing");
      }
      return FALSE;
    }
    if (in->eof()) {
      SoReadError::post(in, "Premature end of file");
      return FALSE;
    }
    if (ok) {
      return isRead; // no further node follows
    }
    // Further children are still read, so that one message names each broken one.
  }
  if (in->getIVVersion() == 1.0F) {
    int end = 0;
    if (!in->read(end) || end != -1) {
      SoReadError::post(in, "The end of the children is missing");
      return FALSE;
    }
  }
  return isRead;
}

void SoChildElements::traverse(SoAction* action)
{
  SoChildList* kitChildren = m_owner->getChildren();
  for (int i = 0; i < kitChildren->getLength() && !action->hasTerminated(); i++) {
    if (find((*kitChildren)[i]) >= 0) {
      kitChildren->traverse(action, i);
    }
  }
}

void SoChildElements::addToCopyDict() const
{
  for (SoQuillform* element : m_elements) {
    static_cast<SoNode*>(element)->addToCopyDict();
  }
}

void SoChildElements::copyFrom(const SoChildElements& from, SbBool copyConnections)
{
  for (SoQuillform* element : from.m_elements) {
    append(static_cast<SoNode*>(SoFieldContainer::findCopy(element, copyConnections)));
  }
}
