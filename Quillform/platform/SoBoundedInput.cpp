#include <Quillform/platform/SoBoundedInput.h>

#include <Inventor/SoDB.h>
#include <Inventor/errors/SoDebugError.h>
#include <Inventor/errors/SoReadError.h>
#include <Inventor/fields/SoSFInt32.h>
#include <Inventor/lists/SoTypeList.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodekits/SoBaseKit.h>
#include <Inventor/nodes/SoSeparator.h>
#include <algorithm>
#include <cstdlib>
#include <unordered_set>
#include <utility>
#include <vector>

namespace {

/// About where the stack stands; only differences between two calls mean something.
const char* getStackPosition()
{
#ifdef _MSC_VER
  const volatile char here = 0;
  return const_cast<const char*>(&here);
#else
  return static_cast<const char*>(__builtin_frame_address(0));
#endif
}

/// Looks for nodes that stand inside themselves and takes them out there, without which they could not be freed.
class CycleCutter {
public:
  /// The first such node below \a node; nullptr when there is none.
  const SoNode* cut(SoNode* node)
  {
    SoChildList* children = node->getChildren();
    if (!children || children->getLength() == 0 || !m_seen.insert(node).second) {
      return nullptr;
    }
    const SoNode* found = nullptr;
    m_path.push_back(node);
    for (int i = children->getLength() - 1; i >= 0; i--) {
      SoNode* child = (*children)[i];
      const bool isInsideItself = std::find(m_path.begin(), m_path.end(), child) != m_path.end();
      if (isInsideItself) {
        children->remove(i);
      }
      const SoNode* inner = isInsideItself ? child : cut(child);
      found = inner ? inner : found;
    }
    m_path.pop_back();
    return found;
  }

private:
  std::unordered_set<const SoNode*> m_seen;
  std::vector<const SoNode*> m_path; // from the root to the node being looked at
};

/// More values than any field of a dialog has. The scene-graph library never comes back from making room for some of
/// the numbers that a broken file may hold.
constexpr int mostValues = 1 << 24;

/// Whether a field of that name holds one number in some element, which may be any.
bool holdsOneNumber(const SbName& field)
{
  SoTypeList types;
  SoType::getAllDerivedFrom(SoBaseKit::getClassTypeId(), types);
  for (int i = 0; i < types.getLength(); i++) {
    auto* node = types[i].canCreateInstance() ? static_cast<SoNode*>(types[i].createInstance()) : nullptr;
    if (!node) {
      continue;
    }
    node->ref();
    const SoField* found = node->getField(field);
    const bool isNumber = found && found->isOfType(SoSFInt32::getClassTypeId());
    node->unref();
    if (isNumber) {
      return true;
    }
  }
  return false;
}

} // namespace

SoBoundedInput::SoBoundedInput() : m_bottom(getStackPosition()) {}

SbBool SoBoundedInput::read(SbName& name, SbBool isIdentifier)
{
  if (!m_isRefused && std::abs(m_bottom - getStackPosition()) > maxStack) {
    m_isRefused = true;
    SoReadError::post(this, "Nodes or fields stand too deep inside each other. Make the file flatter");
  }
  const SbBool isRead = m_isRefused ? FALSE : SoInput::read(name, isIdentifier);
  m_lastName = isRead ? name : SbName();
  return isRead;
}

SbBool SoBoundedInput::read(int& number)
{
  const SbName field = std::exchange(m_lastName, SbName());
  if (m_isRefused || !SoInput::read(number)) {
    return FALSE;
  }
  if (number > mostValues && isBinary() && field.getLength() > 0 && !holdsOneNumber(field)) {
    m_isRefused = true;
    SoReadError::post(this, "\"%s\" cannot have %d values. The file is broken", field.getString(), number);
  }
  return !m_isRefused;
}

SoSeparator* SoBoundedInput::readAll()
{
  SoSeparator* root = SoDB::readAll(this);
  if (!root) {
    return nullptr;
  }
  root->ref();
  if (const SoNode* inner = CycleCutter().cut(root)) {
    SoDebugError::post("SoBoundedInput::readAll", "\"%s\": a %s (named \"%s\") stands inside itself.",
                       getCurFileName() ? getCurFileName() : "", inner->getTypeId().getName().getString(),
                       inner->getName().getString());
    root->unref();
    return nullptr;
  }
  root->unrefNoDelete();
  return root;
}
