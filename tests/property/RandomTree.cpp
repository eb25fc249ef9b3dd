#include <property/RandomTree.h>

#include <Inventor/fields/SoMFColor.h>
#include <Inventor/fields/SoMFString.h>
#include <Inventor/fields/SoSFFloat.h>
#include <Inventor/fields/SoSFInt32.h>
#include <Inventor/fields/SoSFNode.h>
#include <Inventor/fields/SoSFVec2i32.h>
#include <Inventor/fields/SoSFVec3f.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/lists/SoTypeList.h>
#include <Quillform/core/SoChildElements.h>
#include <algorithm>
#include <limits>

namespace {

/// The classes that may stand somewhere in a dialog.
std::vector<SoType> elementTypes()
{
  SoTypeList all;
  SoType::getAllDerivedFrom(SoTopComponent::getClassTypeId(), all);
  std::vector<SoType> types;
  for (int i = 0; i < all.getLength(); i++) {
    // What only serves as a base has nothing to show, or no value.
    const bool isBase = all[i] == SoTopComponent::getClassTypeId() || all[i] == SoDialogComponent::getClassTypeId() ||
                        all[i] == SoDialogChoice::getClassTypeId() || all[i] == SoDialogGroup::getClassTypeId() ||
                        all[i] == SoDialogSlider::getClassTypeId();
    if (all[i].canCreateInstance() && !isBase) {
      types.push_back(all[i]);
    }
  }
  return types;
}

/// The classes that containers of their own kind of elements hold, such as the entries of menus.
std::vector<SoType> otherTypes()
{
  SoTypeList all;
  SoType::getAllDerivedFrom(SoQuillform::getClassTypeId(), all);
  std::vector<SoType> types;
  for (int i = 0; i < all.getLength(); i++) {
    const bool isInDialogs = all[i].isDerivedFrom(SoTopComponent::getClassTypeId());
    const bool isDialog = all[i].isDerivedFrom(SoTopLevelDialog::getClassTypeId());
    if (all[i].canCreateInstance() && !isInDialogs && !isDialog && all[i] != SoQuillform::getClassTypeId()) {
      types.push_back(all[i]);
    }
  }
  return types;
}

SoQuillform* create(SoType type)
{
  return static_cast<SoQuillform*>(type.createInstance());
}

std::string quoted(const std::string& text)
{
  std::string result = "\"";
  for (const char character : text) {
    if (character == '"' || character == '\\') {
      result += '\\';
    }
    result += character;
  }
  return result + "\"";
}

std::string anyText(Random& random)
{
  static const std::vector<std::string> texts = {
    "",
    "",
    "OK",
    "A text",
    "Name:",
    " ",
    "A text that is much longer than the place where it has to stand, whatever that place may be",
    "two\nlines",
    "three\\nshort\\nlines",
    "\n",
    "ends with one\n",
    "\n\nin the middle\n\n",
    "na\xefve \xe9l\xe8ve \xdf\xb5\xff",
    "\xa0",
    "back\\slash \\t tab",
    "back\\\\slashes",
    "a \"quoted\" text",
    "tab\there",
    "<b>bold</b> &amp; &lt;",
    "&Mnemonic && more",
    "return\r\nfeed",
    "%d %s %n",
    "WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW",
  };
  return random.of(texts);
}

std::string anyFormat(Random& random)
{
  static const std::vector<std::string> formats = {"%d",    "%.3f", "%5d", "%08.2f", "%g",  "%e",   "%x",
                                                   "%d mm", "%%",   "",    "%s",     "%n",  "%d%d", "%999999d",
                                                   "%.99f", "%*d",  "%ld", "100%",   "%.0f"};
  return random.of(formats);
}

int anySizeOf(Random& random, bool isMaximum, bool anySize)
{
  static const std::vector<int> sizes = {0, 0, 0, 1, 10, 30, 60, 100, 150, 300, 500};
  static const std::vector<int> odd = {-1, -100, std::numeric_limits<int>::min(), 2000};
  static const std::vector<int> huge = {
    20000, 32766, 32767, 32768, 16777215, 16777216, std::numeric_limits<int>::max()};
  if (random.oneIn(8)) {
    return random.of(odd);
  }
  if (random.oneIn(8) && (isMaximum || anySize)) {
    return random.of(huge);
  }
  return random.of(sizes);
}

int anyInteger(Random& random, const std::string& name, bool anySize)
{
  static const std::vector<std::string> sizes = {"width", "height", "minWidth", "minHeight", "maxWidth", "maxHeight"};
  if (std::find(sizes.cbegin(), sizes.cend(), name) != sizes.cend()) {
    return anySizeOf(random, name.rfind("max", 0) == 0, anySize);
  }
  if (name == "margin" || name.find("Spacing") != std::string::npos) {
    static const std::vector<int> gaps = {0, 1, 2, 3, 5, 10, 17, -1, -4};
    return anySize && random.oneIn(10) ? random.of(std::vector<int>{1000000, -1000000, 2147483647, -2147483647})
                                       : random.of(gaps);
  }
  if (name == "min" || name == "max" || name == "value") {
    static const std::vector<int> values = {
      0, 1, 2, 5, 10, 100, -1, -5, -100, 12345, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()};
    return random.of(values);
  }
  static const std::vector<int> values = {0, 0, 1, 1, 2, 3, 7, -1, 1000};
  return random.of(values);
}

float anyFloat(Random& random)
{
  static const std::vector<float> values = {0.0F,
                                            0.0F,
                                            1.0F,
                                            1.0F,
                                            0.25F,
                                            0.5F,
                                            2.0F,
                                            10.0F,
                                            100.0F,
                                            -1.0F,
                                            -0.5F,
                                            -100.0F,
                                            1e-6F,
                                            1e10F,
                                            std::numeric_limits<float>::max(),
                                            std::numeric_limits<float>::lowest(),
                                            std::numeric_limits<float>::infinity(),
                                            -std::numeric_limits<float>::infinity(),
                                            std::numeric_limits<float>::quiet_NaN()};
  return random.of(values);
}

} // namespace

std::string RandomTree::nameOf(SoQuillform* element, SoField* field)
{
  SbName name;
  element->getFieldName(field, name);
  return name.getString();
}

std::vector<SoField*> RandomTree::fieldsOf(SoQuillform* element)
{
  SoFieldList all;
  element->getFields(all);
  std::vector<SoField*> fields;
  for (int i = 0; i < all.getLength(); i++) {
    if (!all[i]->isOfType(SoSFNode::getClassTypeId())) { // the parts of the kit are fields, too
      fields.push_back(all[i]);
    }
  }
  const auto first = std::find(fields.begin(), fields.end(), &element->enable);
  fields.erase(fields.begin(), first); // what stands before is the dragger's
  return fields;
}

RandomTree::Change RandomTree::change(Random& random, SoQuillform* element, bool anySize)
{
  const std::vector<SoField*> fields = fieldsOf(element);
  // The classes' own fields come last; half of all changes are theirs.
  const int count = static_cast<int>(fields.size());
  SoField* field = fields[static_cast<std::size_t>(
    random.oneIn(2) ? random.below(count) : random.between(count - std::min(count, 9), count - 1))];
  const std::string name = nameOf(element, field);
  Change change;
  change.field = field;
  if (auto* flag = dynamic_cast<SoSFBool*>(field)) {
    const SbBool value = !flag->getValue();
    change.text = value ? "TRUE" : "FALSE";
    change.apply = [flag, value] {
      flag->setValue(value);
    };
  }
  else if (auto* choice = dynamic_cast<SoSFEnum*>(field)) {
    SbName value;
    const int number = choice->getEnum(random.below(choice->getNumEnums()), value);
    change.text = value.getString();
    change.apply = [choice, number] {
      choice->setValue(number);
    };
  }
  else if (auto* text = dynamic_cast<SoSFString*>(field)) {
    const std::string value = name == "format" ? anyFormat(random) : anyText(random);
    change.text = quoted(value);
    change.apply = [text, value] {
      text->setValue(value.c_str());
    };
  }
  else if (auto* integer = dynamic_cast<SoSFInt32*>(field)) {
    const int value = anyInteger(random, name, anySize);
    change.text = std::to_string(value);
    change.apply = [integer, value] {
      integer->setValue(value);
    };
  }
  else if (auto* number = dynamic_cast<SoSFFloat*>(field)) {
    const float value = anyFloat(random);
    change.text = std::to_string(value);
    change.apply = [number, value] {
      number->setValue(value);
    };
  }
  else if (auto* entries = dynamic_cast<SoMFString*>(field)) {
    std::vector<std::string> values;
    change.text = "[";
    const int many = random.oneIn(10) ? 40 : random.below(6);
    for (int i = 0; i < many; i++) {
      values.push_back(anyText(random));
      change.text += " " + quoted(values.back()) + ",";
    }
    change.text += " ]";
    change.apply = [entries, values] {
      std::vector<SbString> strings(values.size());
      std::transform(values.cbegin(), values.cend(), strings.begin(),
                     [](const std::string& value) { return SbString(value.c_str()); });
      entries->enableNotify(FALSE); // one change
      entries->setNum(static_cast<int>(strings.size()));
      if (!strings.empty()) {
        entries->setValues(0, static_cast<int>(strings.size()), strings.data());
      }
      entries->enableNotify(TRUE);
      entries->touch();
    };
  }
  else if (auto* colors = dynamic_cast<SoMFColor*>(field)) {
    std::vector<SbColor> values;
    change.text = "[";
    for (int i = random.below(5); i > 0; i--) {
      values.emplace_back(static_cast<float>(random.below(5)) * 0.25F, static_cast<float>(random.below(5)) * 0.25F,
                          random.oneIn(9) ? -3.0F : static_cast<float>(random.below(5)) * 0.25F);
      const SbColor& color = values.back();
      change.text +=
        " " + std::to_string(color[0]) + " " + std::to_string(color[1]) + " " + std::to_string(color[2]) + ",";
    }
    change.text += " ]";
    change.apply = [colors, values] {
      colors->enableNotify(FALSE);
      colors->setNum(static_cast<int>(values.size()));
      for (std::size_t i = 0; i < values.size(); i++) {
        colors->set1Value(static_cast<int>(i), values[i]);
      }
      colors->enableNotify(TRUE);
      colors->touch();
    };
  }
  else if (auto* place = dynamic_cast<SoSFVec3f*>(field)) {
    const SbVec3f value(static_cast<float>(random.below(60)), static_cast<float>(random.below(60)),
                        static_cast<float>(random.below(3)));
    change.text = std::to_string(value[0]) + " " + std::to_string(value[1]) + " " + std::to_string(value[2]);
    change.apply = [place, value] {
      place->setValue(value);
    };
  }
  else if (auto* pixels = dynamic_cast<SoSFVec2i32*>(field)) {
    const SbVec2i32 value(random.between(-20, 200), random.between(-20, 200));
    change.text = std::to_string(value[0]) + " " + std::to_string(value[1]);
    change.apply = [pixels, value] {
      pixels->setValue(value);
    };
  }
  else {
    change.text = "touched";
    change.apply = [field] {
      field->touch();
    };
  }
  return change;
}

namespace {

void fill(Random& random, SoQuillform* element, bool anySize, int depth)
{
  for (int i = random.below(6); i > 0; i--) {
    RandomTree::change(random, element, anySize).apply();
  }
  SoChildElements* children = element->getChildElements();
  for (int i = children ? random.below(4) : 0; i > 0; i--) {
    SoQuillform* child = RandomTree::element(random, anySize, depth + 1);
    child->ref();
    children->insert(child, random.below(5));
    child->unref();
  }
  auto* launcher = dynamic_cast<SoChildOperations<SoTopLevelDialog>*>(element);
  if (launcher && random.oneIn(2)) {
    auto* launched = new SoTopLevelDialog;
    launched->ref();
    fill(random, launched, anySize, depth + 2);
    launcher->addChild(launched);
    launched->unref();
  }
}

} // namespace

SoQuillform* RandomTree::element(Random& random, bool anySize, int depth)
{
  const std::vector<SoType> inDialogs = elementTypes();
  const std::vector<SoType> others = otherTypes();
  constexpr int deepest = 4;
  SoQuillform* made =
    create(!others.empty() && depth > 0 && random.oneIn(4) ? random.of(others) : random.of(inDialogs));
  if (depth < deepest) {
    fill(random, made, anySize, depth);
  }
  return made;
}

SoTopLevelDialog* RandomTree::dialog(Random& random, bool anySize)
{
  auto* dialog = new SoTopLevelDialog;
  dialog->ref();
  fill(random, dialog, anySize, 0);
  for (int i = random.between(1, 4); i > 0; i--) {
    SoQuillform* child = element(random, anySize, 1);
    child->ref();
    dialog->getChildElements()->insert(child, i);
    child->unref();
  }
  return dialog;
}

std::vector<SoQuillform*> RandomTree::elementsBelow(SoQuillform* root)
{
  std::vector<SoQuillform*> found;
  const SoChildElements* children = root->getChildElements();
  for (int i = 0; children && i < children->getNum(); i++) {
    found.push_back(children->get(i));
    const std::vector<SoQuillform*> inner = elementsBelow(children->get(i));
    found.insert(found.end(), inner.cbegin(), inner.cend());
  }
  return found;
}

std::string RandomTree::placeOf(SoQuillform* root, SoQuillform* element)
{
  std::string place;
  for (SoQuillform* node = element; node && node != root && node->getParent(); node = node->getParent()) {
    place = "." + std::to_string(node->getParent()->getChildElements()->find(node)) + place;
  }
  return std::string(element->getTypeId().getName().getString()) + (place.empty() ? "" : " " + place.substr(1));
}
