#include <Quillform/core/SoAuditorLists.h>

#include <Quillform/core/SoQuillform.h>
#include <unordered_map>

namespace {

/// Never destroyed: auditors of the application may live longer than anything else.
std::unordered_multimap<SoAuditor*, SoQuillform*>& uses()
{
  static auto* const map = new std::unordered_multimap<SoAuditor*, SoQuillform*>;
  return *map;
}

} // namespace

void SoAuditorLists::add(SoAuditor* auditor, SoQuillform* element)
{
  uses().emplace(auditor, element);
}

void SoAuditorLists::remove(SoAuditor* auditor, SoQuillform* element)
{
  const auto range = uses().equal_range(auditor);
  for (auto use = range.first; use != range.second; ++use) {
    if (use->second == element) {
      uses().erase(use);
      return;
    }
  }
}

void SoAuditorLists::removeAll(SoQuillform* element)
{
  for (int i = 0; i < element->getAuditorListLength(); i++) {
    remove(element->getAuditor(i), element);
  }
}

std::vector<SoQuillform*> SoAuditorLists::getElements(SoAuditor* auditor)
{
  std::vector<SoQuillform*> elements;
  const auto range = uses().equal_range(auditor);
  for (auto use = range.first; use != range.second; ++use) {
    elements.push_back(use->second);
  }
  return elements;
}
