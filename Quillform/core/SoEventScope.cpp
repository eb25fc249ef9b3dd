#include <Quillform/core/SoEventScope.h>

#include <Quillform/core/SoQuillform.h>
#include <utility>
#include <vector>

namespace {

int s_depth = 0;
SoHandleEventAction* s_action = nullptr;
std::vector<std::pair<SoQuillform*, std::function<void()>>> s_tasks;

void runTasks()
{
  // A task may open a scope of its own, whose tasks join the list.
  while (!s_tasks.empty()) {
    const auto tasks = std::exchange(s_tasks, {});
    for (const auto& [element, task] : tasks) {
      task();
      element->unref();
    }
  }
}

} // namespace

SoEventScope::SoEventScope(SoQuillform* element, SoHandleEventAction* action)
    : m_element(element), m_outerAction(std::exchange(s_action, action))
{
  m_element->ref();
  ++s_depth;
}

SoEventScope::~SoEventScope()
{
  s_action = m_outerAction;
  if (--s_depth == 0) {
    runTasks();
  }
  m_element->unref();
}

bool SoEventScope::isActive()
{
  return s_depth > 0;
}

SoHandleEventAction* SoEventScope::getAction()
{
  return s_action;
}

void SoEventScope::whenOver(SoQuillform* element, const std::function<void()>& task)
{
  if (!isActive()) {
    task();
    return;
  }
  element->ref();
  s_tasks.emplace_back(element, task);
}
