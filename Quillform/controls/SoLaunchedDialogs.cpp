#include <Quillform/controls/SoLaunchedDialogs.h>

#include <Inventor/Qt/SoQt.h>
#include <Quillform/containers/SoTopLevelDialog.h>
#include <Quillform/core/SoRebuildScope.h>
#include <utility>

std::vector<SoTopLevelDialog*> SoLaunchedDialogs::hold() const
{
  std::vector<SoTopLevelDialog*> dialogs;
  for (int i = 0; i < m_elements.getNum(); i++) {
    dialogs.push_back(static_cast<SoTopLevelDialog*>(m_elements.get(i)));
    dialogs.back()->ref();
  }
  return dialogs;
}

/// Opening a dialog runs code of the application, by a sensor say, which may add and remove dialogs.
template <class Call>
void SoLaunchedDialogs::forEach(Call call)
{
  for (SoTopLevelDialog* dialog : hold()) {
    if (m_elements.find(dialog) >= 0) {
      call(dialog);
    }
    dialog->unref();
  }
}

SoLaunchedDialogs::SoLaunchedDialogs(SoQuillform* launcher, std::function<void()> changed)
    : m_launcher(launcher),
      m_elements(launcher, {SoTopLevelDialog::getClassTypeId, [this, changed = std::move(changed)] {
                              hideNew3D();
                              changed();
                            }})
{
}

void SoLaunchedDialogs::hideNew3D()
{
  forEach([](SoTopLevelDialog* dialog) {
    if (dialog->isBuilt3D() == 0) {
      dialog->show3D(0); // its controls would show themselves before it is opened
    }
  });
}

bool SoLaunchedDialogs::isOpen3D() const
{
  return m_isOpen3D;
}

SoChildElements& SoLaunchedDialogs::getElements()
{
  return m_elements;
}

void SoLaunchedDialogs::open(bool opened)
{
  if (m_launcher->isWidgetBuilt()) {
    showWindows(opened);
  }
  if (m_launcher->isBuilt3D() != 0) {
    show3D(opened);
  }
}

void SoLaunchedDialogs::buildWindows()
{
  forEach([](SoTopLevelDialog* dialog) {
    if (!dialog->getWidget()) {
      dialog->buildAs(SoQt::getTopLevelWidget(), 1);
    }
  });
}

void SoLaunchedDialogs::showWindows(bool shown)
{
  buildWindows();
  forEach([shown](SoTopLevelDialog* dialog) {
    const QWidget* window = dialog->getWidget();
    const bool isShown = window && window->isVisible();
    if (shown && !isShown) {
      dialog->show();
    }
    else if (!shown && isShown) {
      dialog->hide();
    }
  });
}

void SoLaunchedDialogs::raiseWindows()
{
  forEach([](SoTopLevelDialog* dialog) {
    if (QWidget* window = dialog->getWidget()) {
      window->raise();
      window->activateWindow();
    }
  });
}

void SoLaunchedDialogs::destroyWindows()
{
  if (!SoRebuildScope::isActive()) {
    forEach([](SoTopLevelDialog* dialog) { dialog->destroyWidget(); });
  }
}

bool SoLaunchedDialogs::isSeen3D() const
{
  SoQuillform* around = m_launcher->getFirstTopParent(1, 0);
  return m_isOpen3D && (!around || around->shows3D(m_launcher));
}

void SoLaunchedDialogs::show3D(bool shown)
{
  m_isBuilt3D = true;
  m_isOpen3D = shown;
  forEach([this](SoTopLevelDialog* dialog) {
    if (dialog->isBuilt3D() == 0) {
      dialog->buildAs(nullptr, 0);
    }
    dialog->change3DPosition();
    dialog->show3D(isSeen3D() ? 1 : 0);
  });
}

void SoLaunchedDialogs::follow3D()
{
  if (m_isBuilt3D) {
    show3D(m_isOpen3D);
  }
}

void SoLaunchedDialogs::move3D()
{
  forEach([](SoTopLevelDialog* dialog) { dialog->change3DPosition(); });
}

bool SoLaunchedDialogs::isBuilt3D() const
{
  return m_isBuilt3D;
}
