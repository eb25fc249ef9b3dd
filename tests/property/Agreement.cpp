#include <property/Agreement.h>

#include <Inventor/fields/SoSFFloat.h>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTextEdit>
#include <Quillform/core/SoText.h>
#include <Quillform/platform/SoQtBasicSlider.h>
#include <algorithm>
#include <cmath>
#include <forms/Plan.h>
#include <property/RandomTree.h>
#include <support/Choices.h>
#include <support/TestFiles.h>

namespace {

using Agreement::Faults;

const char* const sizingFields[] = {"width", "height", "minWidth", "minHeight", "maxWidth", "maxHeight"};

bool isSizingField(const std::string& name)
{
  return std::find(std::begin(sizingFields), std::end(sizingFields), name) != std::end(sizingFields);
}

std::string show(const QString& text)
{
  return "\"" + text.toStdString() + "\"";
}

std::string show(bool value)
{
  return value ? "TRUE" : "FALSE";
}

std::string show(int value)
{
  return std::to_string(value);
}

/// Compares what one element shows with what it should.
class ElementCheck {
public:
  ElementCheck(SoTopLevelDialog* dialog, SoDialogComponent* element, Faults& faults)
      : m_dialog(dialog), m_element(element), m_faults(faults)
  {
  }

  template <class Value>
  void expect(const char* what, const Value& shown, const Value& wanted)
  {
    if (shown != wanted) {
      add(std::string(what) + " is " + show(shown) + " instead of " + show(wanted));
    }
  }

  void checkWidgets()
  {
    m_widget = m_element->getWidget();
    if (!m_widget || !m_dialog->getWidget()->isAncestorOf(m_widget)) {
      add("has no widget in the window");
      return;
    }
    if (m_element->isOfType(SoDialogSeparator::getClassTypeId())) {
      return; // it ignores all changes after the build
    }
    expect("the enabled state", m_widget->isEnabled(), isEnabled());
    checkLabel();
    if (const auto* box = dynamic_cast<SoDialogCheckBox*>(m_element)) {
      checkCheckBox(box);
    }
    else if (auto* combo = dynamic_cast<SoDialogComboBox*>(m_element)) {
      checkComboBox(combo);
    }
    else if (const auto* radio = dynamic_cast<SoDialogRadioButtons*>(m_element)) {
      checkRadioButtons(radio);
    }
    else if (const auto* edit = dynamic_cast<SoDialogEditText*>(m_element)) {
      checkEditText(edit);
    }
    else if (const auto* slider = dynamic_cast<SoDialogSlider*>(m_element)) {
      checkSlider(slider);
    }
    else if (const auto* button = dynamic_cast<SoDialogPushButton*>(m_element)) {
      expect("the button's text", child<QPushButton>()->text(), shown(button->buttonLabel));
    }
  }

  void checkGeometry()
  {
    if (m_element->isOfType(SoDialogSeparator::getClassTypeId())) {
      return;
    }
    expect("the edge in the scene", Choices::shownChild(m_element, "edgeStyleSwitch"), m_element->edgeStyle.getValue());
    if (dynamic_cast<SoDialogCheckBox*>(m_element) || dynamic_cast<SoDialogSlider*>(m_element) ||
        dynamic_cast<SoDialogComboBox*>(m_element) || dynamic_cast<SoDialogEditText*>(m_element)) {
      expect("the label's switch in the scene", Choices::shownChild(m_element, "labelSwitch"),
             m_element->labelVisibility.getValue() ? SO_SWITCH_ALL : SO_SWITCH_NONE);
    }
    if (const auto* box = dynamic_cast<SoDialogCheckBox*>(m_element)) {
      expect("the state in the scene", Choices::shownChild(m_element, "stateSwitch"), box->state.getValue() ? 1 : 0);
    }
    const auto* slider = dynamic_cast<SoDialogSlider*>(m_element);
    if (slider && slider->toggleVisible.getValue()) {
      expect("the toggle in the scene", Choices::shownChild(m_element, "checkSwtch"),
             slider->continuousTrigger.getValue() ? 1 : 0);
    }
  }

private:
  void add(const std::string& fault)
  {
    m_faults.push_back(RandomTree::placeOf(m_dialog, m_element) + ": " + fault);
  }

  QString shown(const SoSFString& field) const
  {
    return SoText::toQt(SoQuillform::convertToCString(field.getValue(), m_element));
  }

  template <class Widget>
  Widget* child() const
  {
    return m_widget->findChild<Widget*>();
  }

  bool isEnabled() const
  {
    for (const SoQuillform* node = m_element; node; node = node->getParent()) {
      if (!node->enable.getValue()) {
        return false;
      }
    }
    return true;
  }

  void checkLabel()
  {
    const auto* label = qobject_cast<QLabel*>(m_element->getLabelWidget());
    if (label) {
      expect("the label", label->text(), shown(m_element->label));
      if (!m_element->isOfType(SoDialogLabel::getClassTypeId())) {
        expect("the label's visibility", !label->isHidden(), m_element->labelVisibility.getValue() != FALSE);
      }
    }
  }

  void checkCheckBox(const SoDialogCheckBox* box)
  {
    expect("the state", child<QCheckBox>()->isChecked(), box->state.getValue() != FALSE);
    const bool showsOff = !box->state.getValue() && box->offString.getValue().getLength() > 0;
    expect("the text", child<QCheckBox>()->text(), shown(showsOff ? box->offString : box->onString));
  }

  void checkComboBox(SoDialogComboBox* combo)
  {
    const auto* widget = child<QComboBox>();
    expect("the number of entries", widget->count(), combo->items.getNum());
    expect("the chosen entry", widget->currentIndex(), std::max(combo->selectedItem.getValue(), -1));
    for (int i = 0; i < std::min(widget->count(), combo->items.getNum()); i++) {
      expect("an entry", widget->itemText(i), SoText::toQt(combo->items[i]));
    }
  }

  void checkRadioButtons(const SoDialogRadioButtons* radio)
  {
    const QList<QRadioButton*> buttons = m_widget->findChildren<QRadioButton*>();
    if (radio->getNumItems() > 0) { // else the first button may stay, with its text
      expect("the number of buttons", static_cast<int>(buttons.size()), radio->getNumItems());
      expect("the chosen button", child<QButtonGroup>()->checkedId(), radio->selectedItem.getValue());
    }
    const QString title = radio->labelVisibility.getValue() ? shown(radio->label) : QString();
    expect("the title", child<QGroupBox>()->title(), title);
  }

  void checkEditText(const SoDialogEditText* edit)
  {
    const auto normal = [](QString text) {
      return text.remove('\r').replace(QChar(0xa0), ' ').replace(QChar::LineSeparator, '\n');
    };
    if (edit->multiLine.getValue()) {
      expect("the text", normal(child<QTextEdit>()->toPlainText()), normal(shown(edit->editText)));
      expect("read-only", child<QTextEdit>()->isReadOnly(), !edit->editable.getValue());
    }
    else {
      expect("the text", normal(child<QLineEdit>()->text()), normal(SoText::toQt(edit->editText.getValue())));
      expect("read-only", child<QLineEdit>()->isReadOnly(), !edit->editable.getValue());
    }
  }

  void checkSlider(const SoDialogSlider* slider)
  {
    expect("the toggle", child<QCheckBox>()->isChecked(), slider->continuousTrigger.getValue() != FALSE);
    expect("the toggle's visibility", !child<QCheckBox>()->isHidden(), slider->toggleVisible.getValue() != FALSE);
    expect("the value's visibility", !child<QLineEdit>()->isHidden(), slider->valueVisible.getValue() != FALSE);
    if (!child<QLineEdit>()->isModified()) { // else the user is typing
      expect("the value's text", child<QLineEdit>()->text(), SoText::toQt(slider->getValueText()));
    }
    for (QObject* inner : m_widget->children()) {
      if (const auto* bar = dynamic_cast<SoQtBasicSlider*>(inner)) {
        if (std::abs(bar->getValue() - slider->getSliderPosition()) > 1e-6F) {
          add("the bar is at " + std::to_string(bar->getValue()) + " instead of " +
              std::to_string(slider->getSliderPosition()));
        }
      }
    }
  }

  SoTopLevelDialog* m_dialog;
  SoDialogComponent* m_element;
  Faults& m_faults;
  QWidget* m_widget = nullptr;
};

/// The scene graph writes infinite numbers, and backslashes in front of a quote, in a way that it cannot read.
bool isWritable(const SoField* field)
{
  if (const auto* number = dynamic_cast<const SoSFFloat*>(field)) {
    return std::isfinite(number->getValue());
  }
  if (const auto* text = dynamic_cast<const SoSFString*>(field)) {
    const std::string quoted = text->getValue().getString() + std::string("\"");
    return quoted.find("\\\"") == std::string::npos;
  }
  return true;
}

void compareFields(SoQuillform* one, SoQuillform* other, const std::string& where,
                   const Agreement::AuthoredSizes& authored, Faults& faults)
{
  const std::vector<SoField*> fields = RandomTree::fieldsOf(one);
  const std::vector<SoField*> others = RandomTree::fieldsOf(other);
  if (one->getTypeId() != other->getTypeId() || fields.size() != others.size()) {
    faults.push_back(where + " is of another class in the file");
    return;
  }
  for (std::size_t i = 0; i < fields.size(); i++) {
    const std::string name = RandomTree::nameOf(one, fields[i]);
    const auto* dialog = dynamic_cast<SoTopLevelDialog*>(one);
    const bool follows =
      dialog && !dialog->independentMinimizedPosition.getValue() && name.find("3D") != std::string::npos;
    SbString now;
    SbString read;
    fields[i]->get(now);
    others[i]->get(read);
    // The scene graph writes a number with fewer digits than it may have.
    if (!isSizingField(name) && !follows && *fields[i] != *others[i] && now != read) {
      faults.push_back(where + ": " + name + " is " + now.getString() + " and comes back as " + read.getString());
    }
  }
  const auto wanted = authored.find(one);
  const std::array<int, 6> read = Agreement::sizesOf(other);
  for (std::size_t i = 0; wanted != authored.end() && i < read.size(); i++) {
    if (read[i] != wanted->second[i]) {
      faults.push_back(where + ": " + sizingFields[i] + " was set to " + std::to_string(wanted->second[i]) +
                       " and is written as " + std::to_string(read[i]));
    }
  }
}

} // namespace

std::array<int, 6> Agreement::sizesOf(SoQuillform* element)
{
  std::array<int, 6> sizes{};
  for (std::size_t i = 0; i < sizes.size(); i++) {
    const auto* field = dynamic_cast<SoSFInt32*>(element->getField(sizingFields[i]));
    sizes[i] = field ? field->getValue() : 0;
  }
  return sizes;
}

Agreement::Faults Agreement::checkElements(SoTopLevelDialog* dialog)
{
  Faults faults;
  for (SoDialogComponent* element : Plan::componentsOf(dialog)) {
    ElementCheck check(dialog, element, faults);
    if (dialog->getWidget() && dialog->isWidgetBuilt()) {
      check.checkWidgets();
    }
    if (dialog->isBuilt3D() != 0) {
      check.checkGeometry();
    }
  }
  return faults;
}

Agreement::Faults Agreement::checkLimits(SoTopLevelDialog* dialog, bool isJustBuilt)
{
  Faults faults;
  const QWidget* base = dialog->getWidget();
  if (!base || !base->isVisible()) {
    return faults;
  }
  const auto expect = [&faults](bool holds, const std::string& fault) {
    if (!holds) {
      faults.push_back(fault);
    }
  };
  const auto inPixels = [](const QSize& size) {
    return std::to_string(size.width()) + " x " + std::to_string(size.height());
  };
  expect(base->size() == base->size().boundedTo(base->maximumSize()).expandedTo(base->minimumSize()),
         "the window is " + inPixels(base->size()));
  const auto allows = [](const SoSFInt32& maximum, int pixels) {
    return maximum.getValue() <= 0 || pixels <= maximum.getValue(); // 0 is computed by the next build
  };
  expect(allows(dialog->maxWidth, base->width()) && allows(dialog->maxHeight, base->height()),
         "the window is larger than its fields allow: " + inPixels(base->size()));
  for (SoDialogComponent* element : Plan::componentsOf(dialog)) {
    const QWidget* frame = element->getWidget();
    const std::string where = RandomTree::placeOf(dialog, element) + ": ";
    if (!frame) {
      continue; // found out elsewhere
    }
    const QSize size = frame->size();
    expect(size == size.boundedTo(frame->maximumSize()), where + "is larger than " + inPixels(frame->maximumSize()));
    // No layout has placed what stands on a page that was never shown.
    expect(!isJustBuilt || !frame->isVisible() ||
             (element->width.getValue() == size.width() && element->height.getValue() == size.height()),
           where + "is " + inPixels(size) + " and its fields say " +
             inPixels({element->width.getValue(), element->height.getValue()}));
    const QLayout* layout = frame->parentWidget()->layout();
    const QSize least = layout ? layout->minimumSize() : QSize(0, 0);
    if (frame->parentWidget()->width() >= least.width() && frame->parentWidget()->height() >= least.height()) {
      expect(size == size.expandedTo(frame->minimumSize().boundedTo(frame->maximumSize())),
             where + "is smaller than " + inPixels(frame->minimumSize()));
    }
  }
  return faults;
}

Agreement::Faults Agreement::checkFile(SoTopLevelDialog* dialog, const AuthoredSizes& authored)
{
  Faults faults;
  std::vector<SoQuillform*> elements = RandomTree::elementsBelow(dialog);
  elements.insert(elements.begin(), dialog);
  for (SoQuillform* element : elements) {
    for (const SoField* field : RandomTree::fieldsOf(element)) {
      if (!isWritable(field)) {
        return faults;
      }
    }
  }
  const std::string written = toText(dialog);
  auto* read = dynamic_cast<SoTopLevelDialog*>(readText(written));
  if (!read) {
    return {"what is written cannot be read:\n" + written};
  }
  std::vector<SoQuillform*> others = RandomTree::elementsBelow(read);
  others.insert(others.begin(), read);
  if (elements.size() == others.size()) {
    for (std::size_t i = 0; i < elements.size(); i++) {
      compareFields(elements[i], others[i], RandomTree::placeOf(dialog, elements[i]), authored, faults);
    }
  }
  else {
    faults.push_back(std::to_string(elements.size()) + " elements come back as " + std::to_string(others.size()));
  }
  const std::string again = toText(read);
  if (again != written) {
    faults.push_back("what was read is written differently:\n" + written + "\n" + again);
  }
  read->unref();
  return faults;
}

std::vector<std::string> Agreement::describeWindow(SoTopLevelDialog* dialog)
{
  std::vector<std::string> lines;
  const std::vector<SoDialogComponent*> components = Plan::componentsOf(dialog);
  const auto isFrame = [&components](const QWidget* widget) {
    return std::any_of(components.cbegin(), components.cend(),
                       [widget](const SoDialogComponent* component) { return component->getWidget() == widget; });
  };
  for (SoDialogComponent* element : components) {
    const QWidget* frame = element->getWidget();
    if (!frame) {
      lines.push_back(RandomTree::placeOf(dialog, element) + " has no widget");
      continue;
    }
    std::vector<std::string> inner;
    QList<QWidget*> widgets = frame->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    widgets.append(const_cast<QWidget*>(frame));
    for (const QWidget* widget : widgets) {
      if (widget != frame && (isFrame(widget) || widget->layout())) {
        continue; // a group's children come by themselves, and radio buttons keep some of their past
      }
      const bool isSeparator = element->isOfType(SoDialogSeparator::getClassTypeId()); // keeps its past, too
      std::string line = RandomTree::placeOf(dialog, element) + " " + widget->metaObject()->className();
      if (frame->isVisible()) { // what stands on a page out of sight has the place that it had when it was seen last
        line += " at " + Plan::toString(QRectF(widget->mapTo(dialog->getWidget(), QPoint(0, 0)), widget->size()));
      }
      if (!isSeparator) {
        line += widget->isVisibleTo(frame) ? ", visible" : ", hidden";
        line += widget->isEnabled() ? ", enabled" : ", disabled";
        for (const char* property : {"text", "plainText", "title", "checked", "currentIndex", "currentText", "count",
                                     "frameShadow", "frameShape", "alignment", "readOnly"}) {
          const QVariant value = widget->property(property);
          const bool isEdge = std::string(property).rfind("frame", 0) == 0;
          if (isEdge && widget->property("frameShape").toInt() == QFrame::NoFrame) {
            continue; // the shadow of no edge is not seen
          }
          if (isEdge && element->isOfType(SoDialogLabel::getClassTypeId())) {
            continue; // it shows an edge only when that changes after the build
          }
          const bool isTypedValue = qobject_cast<const QLineEdit*>(widget) && dynamic_cast<SoDialogSlider*>(element);
          if (value.isValid() && !isTypedValue) { // what is typed without Return is not the value
            line += std::string(", ") + property + " \"" + value.toString().toStdString() + "\"";
          }
        }
      }
      inner.push_back(line);
    }
    std::sort(inner.begin(), inner.end());
    lines.insert(lines.end(), inner.cbegin(), inner.cend());
  }
  return lines;
}

Agreement::Faults Agreement::compare(const std::vector<std::string>& one, const std::vector<std::string>& other)
{
  Faults faults;
  for (std::size_t i = 0; i < std::max(one.size(), other.size()); i++) {
    const std::string first = i < one.size() ? one[i] : "nothing";
    const std::string second = i < other.size() ? other[i] : "nothing";
    if (first != second) {
      faults.push_back(first + "\n  instead of " + second);
    }
  }
  return faults;
}
