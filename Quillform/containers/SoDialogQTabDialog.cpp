#include <Quillform/containers/SoDialogQTabDialog.h>

#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <Quillform/containers/SoTabPlan.h>
#include <Quillform/core/SoDialogComponent.h>

namespace {

/// Tabs of the sizes that the scene has too. Those that have no room are scrolled to, not squeezed.
class TabBar : public QTabBar {
public:
  using QTabBar::QTabBar;

protected:
  QSize tabSizeHint(int index) const override
  {
    return SoTabPlan::getTabSize(tabText(index), font());
  }
  QSize minimumTabSizeHint(int index) const override
  {
    return tabSizeHint(index);
  }
};

class TabWidget : public QTabWidget {
public:
  explicit TabWidget(QWidget* parent) : QTabWidget(parent)
  {
    setTabBar(new TabBar(this));
    setElideMode(Qt::ElideRight);
    setUsesScrollButtons(true);
  }
};

} // namespace

/// Keeps the tabs from reporting for as long as it lives.
class SoDialogQTabDialog::Silence {
public:
  explicit Silence(SoDialogQTabDialog* relay) : m_relay(relay)
  {
    QObject::disconnect(relay->m_tabs, &QTabWidget::currentChanged, relay, &SoDialogQTabDialog::eventNotify);
  }
  ~Silence()
  {
    QObject::connect(m_relay->m_tabs, &QTabWidget::currentChanged, m_relay, &SoDialogQTabDialog::eventNotify,
                     Qt::UniqueConnection);
  }
  Silence(const Silence&) = delete;
  Silence& operator=(const Silence&) = delete;

private:
  SoDialogQTabDialog* m_relay;
};

SoDialogQTabDialog::SoDialogQTabDialog(QWidget* parent, SoDialogComponent* owner)
    : SoDialogQFrame(parent, owner, "SoDialogQTabDialog"), m_tabs(new TabWidget(this))
{
  m_tabs->setObjectName(nameOf("TabWidget"));
  SoQuillform::setWidgetFont(m_tabs);
  setControl(m_tabs);
  connect(m_tabs, &QTabWidget::currentChanged, this, &SoDialogQTabDialog::eventNotify);
}

QTabWidget* SoDialogQTabDialog::getQTabWidget() const
{
  return m_tabs;
}

QBoxLayout* SoDialogQTabDialog::getLayout(int page) const
{
  const QWidget* widget = m_tabs->widget(page);
  return widget ? qobject_cast<QBoxLayout*>(widget->layout()) : nullptr;
}

QWidget* SoDialogQTabDialog::insertTab(int index, const QString& label)
{
  const Silence silence(this);
  auto* page = new QWidget(this);
  page->setObjectName(nameOf("TempWidget"));
  auto* layout = new QVBoxLayout(page);
  layout->setObjectName(nameOf("Layout"));
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  m_tabs->insertTab(index, page, label);
  return page;
}

void SoDialogQTabDialog::removeTab(int index)
{
  const Silence silence(this);
  if (QWidget* page = m_tabs->widget(index)) {
    m_tabs->removeTab(index);
    // One of its widgets may be on the call stack.
    page->hide();
    page->setParent(nullptr);
    page->deleteLater();
  }
}

void SoDialogQTabDialog::setTabLabel(int index, const QString& label)
{
  m_tabs->setTabText(index, label);
}

void SoDialogQTabDialog::setCurrentPage(int page)
{
  const Silence silence(this);
  m_tabs->setCurrentIndex(page);
}

void SoDialogQTabDialog::tabDialogWidgetPos(int x, int y, int w, int h)
{
  place(m_tabs, x, y, w, h);
}

void SoDialogQTabDialog::eventNotify(int page)
{
  if (page >= 0) {
    notifyOwner(static_cast<unsigned int>(page), 0);
  }
}
