// Shows a sphere in an examiner viewer, and a dialog that changes its material, its light and how it is drawn.
//
//   material-editor [--scene] [--print-changes] [DIALOG.iv]
//   --scene          the dialog is geometry beside the sphere and not a window; Escape lets the mouse turn both
//   --print-changes  prints a line for every change of the model: the node, its field and the new value
//   DIALOG.iv        the dialog file; material-editor.iv beside the program when none is named

#include <Inventor/Qt/SoQt.h>
#include <Inventor/Qt/viewers/SoQtExaminerViewer.h>
#include <Inventor/nodes/SoNodes.h>
#include <Inventor/sensors/SoNodeSensor.h>
#include <QCoreApplication>
#include <Quillform/Quillform.h>
#include <iostream>
#include <stdexcept>
#include <string>
#include <utility>

namespace {

/// What the dialog changes.
struct Model {
  SoDirectionalLight* light = new SoDirectionalLight;
  SoDrawStyle* style = new SoDrawStyle;
  SoComplexity* complexity = new SoComplexity;
  SoMaterial* material = new SoMaterial;
  SoSeparator* shape = new SoSeparator;
  SoText2* name = new SoText2;
  SoSeparator* root = new SoSeparator; // above the others: the light shines on nothing else

  Model()
  {
    root->ref();
    auto* below = new SoTransform;
    below->translation.setValue(-0.3F, -1.4F, 0.0F);
    material->diffuseColor.setValue(0.78F, 0.4F, 0.22F);
    shape->addChild(new SoSphere);
    for (SoNode* node : std::initializer_list<SoNode*>{light, style, complexity, material, shape, below, name}) {
      root->addChild(node);
    }
  }
  ~Model()
  {
    root->unref();
  }
};

/// Prints which field of which node has changed.
void printChange(void* /*data*/, SoSensor* sensor)
{
  if (SoField* field = static_cast<SoNodeSensor*>(sensor)->getTriggerField()) {
    SbName name;
    field->getContainer()->getFieldName(field, name);
    SbString value;
    field->get(value);
    std::cout << field->getContainer()->getTypeId().getName() << ' ' << name << ' ' << value.getString() << std::endl;
  }
}

/// Gives a field a value unless it has it.
template <class Field, class Value>
void change(Field& field, const Value& value)
{
  Field wanted;
  wanted.setValue(value);
  if (field != wanted) {
    field.setValue(value);
  }
}

/// The messages of the program, which stand in the dialog file too.
void showMessage(const std::string& file, const char* id, const std::string& text = "")
{
  auto* message = dynamic_cast<SoMessageDialog*>(SoQuillform::loadFromFile(file.c_str(), id));
  if (!message) {
    throw std::runtime_error(std::string("it has no message with the auditorID ") + id);
  }
  if (!text.empty()) {
    message->label = text.c_str();
  }
  message->show();
}

/// Connects the dialog with the model. Whatever the user operates, one of the operations dialog...() is called.
class Editor : public SoDialogAuditor {
public:
  Editor(SoTopLevelDialog* dialog, const Model& model, std::string file)
      : m_dialog(dialog), m_model(model), m_file(std::move(file))
  {
    showMaterial();
    takeDialog();
    dialog->addAuditor(this);
  }

  /// Names the viewer whose picture is saved and whose background is chosen.
  void setViewer(SoQtExaminerViewer* viewer)
  {
    m_viewer = viewer;
    takeDialog();
  }

private:
  void dialogCheckBox(SoDialogCheckBox* /*box*/) override
  {
    takeDialog();
  }
  void dialogEditText(SoDialogEditText* /*text*/) override
  {
    takeDialog();
  }
  void dialogIntegerSlider(SoDialogIntegerSlider* /*slider*/) override
  {
    takeDialog();
  }
  void dialogRadioButtons(SoDialogRadioButtons* /*buttons*/) override
  {
    takeDialog();
  }
  void dialogRealSlider(SoDialogRealSlider* /*slider*/) override
  {
    takeDialog();
  }
  void dialogComboBox(SoDialogComboBox* /*box*/) override
  {
    showMaterial(); // the sliders stand for another colour
  }
  void dialogPushButton(SoDialogPushButton* /*button*/) override
  {
    SoQt::exitMainLoop();
  }

  void menuPushButton(SoMenuPushButton* entry) override
  {
    if (entry->auditorID.getValue() == "quit") {
      SoQt::exitMainLoop();
    }
    else if (entry->auditorID.getValue() == "about") {
      showMessage(m_file, "about-message");
    }
  }
  void menuCheckBox(SoMenuCheckBox* entry) override
  {
    if (entry->auditorID.getValue() == "showName") {
      takeDialog();
    }
  }
  void menuRadioButtons(SoMenuRadioButtons* entries) override
  {
    find<SoDialogChoice>("style")->selectedItem = entries->selectedItem.getValue();
    takeDialog();
  }
  void menuFileSelection(SoMenuFileSelection* entry) override
  {
    if (entry->filename.getValue().getLength() == 0) {
      return; // the user has thought better of it
    }
    const std::string name =
      std::string(entry->fileDirectory.getValue().getString()) + '/' + entry->filename.getValue().getString();
    if (entry->mode.getValue() == SoMenuFileSelection::OPEN) {
      openModel(name);
    }
    else if (!m_viewer->getGLWidget()->grab().save(QString::fromLatin1(name.c_str()))) {
      showMessage(m_file, "error-message", "The picture cannot be saved as " + name + ".");
    }
  }

  void openModel(const std::string& name) const
  {
    SoInput in;
    SoSeparator* shape = in.openFile(name.c_str()) ? SoDB::readAll(&in) : nullptr;
    if (!shape) {
      showMessage(m_file, "error-message", "No model can be read from " + name + ".");
      return;
    }
    m_model.shape->removeAllChildren();
    m_model.shape->addChild(shape);
  }

  /// The control of that name. The dialog file may be somebody else's and have none; the constructor asks for all.
  template <class Control>
  Control* find(const char* id) const
  {
    auto* control = dynamic_cast<Control*>(m_dialog->searchForAuditorId(id));
    if (!control) {
      throw std::runtime_error(std::string("it has no control of the right kind with the auditorID ") + id);
    }
    return control;
  }
  float number(const char* id) const
  {
    const auto* slider = dynamic_cast<const SoDialogRealSlider*>(find<SoDialogSlider>(id));
    return slider ? slider->value.getValue() : static_cast<float>(find<SoDialogIntegerSlider>(id)->value.getValue());
  }
  int choice(const char* id) const
  {
    return find<SoDialogChoice>(id)->selectedItem.getValue();
  }

  /// The colour of the material that the sliders stand for.
  SoMFColor& color() const
  {
    static const char* const fields[] = {"ambientColor", "diffuseColor", "specularColor", "emissiveColor"};
    return *static_cast<SoMFColor*>(m_model.material->getField(fields[choice("part") % 4]));
  }

  /// Setting the fields of controls calls no auditor.
  void showMaterial() const
  {
    find<SoDialogRealSlider>("red")->value = color()[0][0];
    find<SoDialogRealSlider>("green")->value = color()[0][1];
    find<SoDialogRealSlider>("blue")->value = color()[0][2];
    find<SoDialogRealSlider>("shininess")->value = m_model.material->shininess[0];
    find<SoDialogRealSlider>("transparency")->value = m_model.material->transparency[0];
  }

  /// Gives the model what the dialog shows.
  void takeDialog() const
  {
    static const SbColor colors[] = {{1.0F, 1.0F, 1.0F}, {1.0F, 0.85F, 0.6F}, {1.0F, 0.6F, 0.25F}};
    const bool showsName = find<SoMenuCheckBox>("showName")->state.getValue();
    change(m_model.name->string, showsName ? find<SoDialogEditText>("name")->editText.getValue() : SbString());
    change(color(), SbColor(number("red"), number("green"), number("blue")));
    change(m_model.material->shininess, number("shininess"));
    change(m_model.material->transparency, number("transparency"));
    change(m_model.light->on, find<SoDialogCheckBox>("on")->state.getValue());
    change(m_model.light->direction, SbVec3f(number("sideways"), number("upwards"), -1.0F));
    change(m_model.light->intensity, number("intensity"));
    change(m_model.light->color, colors[choice("lightColor") % 3]);
    change(m_model.complexity->value, number("complexity"));
    change(m_model.style->style, choice("style")); // in the order of SoDrawStyle::Style
    change(m_model.style->lineWidth, number("lineWidth"));
    change(m_model.style->pointSize, number("pointSize"));
    find<SoMenuRadioButtons>("menuStyle")->selectedItem = choice("style");
    const float grey = number("background");
    if (m_viewer) {
      m_viewer->setBackgroundColor(SbColor(grey, grey, grey));
    }
    find<SoDialogIntegerSlider>("lineWidth")->enable = choice("style") == SoDrawStyle::LINES;
    find<SoDialogIntegerSlider>("pointSize")->enable = choice("style") == SoDrawStyle::POINTS;
  }

  SoTopLevelDialog* m_dialog;
  const Model& m_model;
  SoQtExaminerViewer* m_viewer = nullptr; // until it is open
  std::string m_file;                     // of the dialog and the messages
};

/// Draws again after the first frame, which is only as large as the area was before it was shown.
class Viewer : public SoQtExaminerViewer {
  void actualRedraw() override
  {
    SoQtExaminerViewer::actualRedraw();
    if (!std::exchange(m_hasDrawn, true)) {
      scheduleRedraw();
    }
  }
  bool m_hasDrawn = false;
};

/// Opens the dialog with the model, and returns when the user has finished.
void edit(SoTopLevelDialog* dialog, const std::string& file, bool inScene, bool printsChanges)
{
  const Model model;
  Editor editor(dialog, model, file);
  auto* camera = new SoPerspectiveCamera;
  camera->position.setValue(inScene ? 1.4F : 0.0F, -0.1F, 4.4F);
  auto* scene = new SoSeparator;
  scene->addChild(camera);
  scene->addChild(model.root);
  if (inScene) {
    auto* place = new SoTransform;
    place->translation.setValue(1.4F, 1.6F, 0.0F);
    place->scaleFactor.setValue(0.0075F, 0.0075F, 0.0075F); // a pixel of the window is a unit in the scene
    for (SoNode* node : std::initializer_list<SoNode*>{new SoDirectionalLight, place, dialog}) {
      scene->addChild(node);
    }
  }
  Viewer viewer;
  viewer.setTitle("Model");
  viewer.setSize(inScene ? SbVec2s(1000, 600) : SbVec2s(640, 600));
  viewer.setHeadlight(FALSE);
  viewer.setTransparencyType(SoGLRenderAction::SORTED_OBJECT_BLEND);
  viewer.setSampleBuffers(4);
  viewer.setSceneGraph(scene);
  viewer.setViewing(!inScene); // in the scene the mouse operates the dialog
  editor.setViewer(&viewer);
  SoNodeSensor sensor(printChange, nullptr);
  sensor.setPriority(0); // for every change, not once when the program is idle
  if (printsChanges) {
    sensor.attach(model.root);
  }
  SoInSceneMode::setEnabled(inScene);
  if (QWidget* window = dialog->buildDialog(nullptr, FALSE)) {
    window->setAttribute(Qt::WA_QuitOnClose, false); // the program ends with the window of the model
  }
  viewer.show();
  dialog->show();
  SoQt::mainLoop();
  dialog->removeAuditor(&editor);
  dialog->destroyWidget(); // while there is a window system
}

} // namespace

int main(int argc, char** argv)
{
  SoQt::init(argc, argv, argv[0]);
  SoQuillform::init();
  QStringList arguments = QCoreApplication::arguments().mid(1);
  const bool inScene = arguments.removeAll("--scene") > 0;
  const bool printsChanges = arguments.removeAll("--print-changes") > 0;
  const QString file = arguments.value(0, QCoreApplication::applicationDirPath() + "/material-editor.iv");
  int status = 0;
  const std::string path = file.toLocal8Bit().toStdString();
  try {
    auto* dialog = dynamic_cast<SoTopLevelDialog*>(SoQuillform::loadFromFile(path.c_str(), ""));
    if (!dialog) {
      throw std::runtime_error("no dialog can be read from it");
    }
    edit(dialog, path, inScene, printsChanges);
  }
  catch (const std::runtime_error& error) {
    std::cerr << "material-editor: \"" << path << "\" is not the dialog of this program: " << error.what() << "."
              << std::endl;
    status = 2;
  }
  SoQuillform::finish();
  return status;
}
