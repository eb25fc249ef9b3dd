// quillform-bench: how long dialogs take to open, to change and to draw, beside what else could show them.

#include "OpenWindows.h"
#include "RatioReporter.h"
#include "SceneFrames.h"

#include <Inventor/Qt/SoQt.h>
#include <QApplication>
#include <Quillform/Quillform.h>
#include <cstdio>
#include <memory>
#include <vector>

namespace {

/// Windows without a display do not know everything that Qt asks of them and say so every time.
void printMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& text)
{
  if (!text.startsWith("This plugin does not support")) {
    std::fprintf(stderr, "%s\n", qPrintable(text));
  }
}

} // namespace

int main(int argc, char** argv)
{
  // Defaults; the same options on the command line come later and win. Peers take turns, so that a busy machine
  // treats them alike.
  static char interleaving[] = "--benchmark_enable_random_interleaving=true";
  static char aggregates[] = "--benchmark_display_aggregates_only=true";
  std::vector<char*> arguments(argv, argv + argc);
  arguments.insert(arguments.begin() + 1, {interleaving, aggregates});
  int count = static_cast<int>(arguments.size());
  arguments.push_back(nullptr);
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
    return 1;
  }

  qInstallMessageHandler(printMessage);
  // No display has a part in how long a window takes. With an X display at hand there still is OpenGL.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  QApplication application(argc, argv);
  auto base = std::make_unique<QWidget>();
  SoQt::init(base.get());
  SoQuillform::init();
  SoQuillform::setSkinsDirectories(QUILLFORM_BENCH_SKINS);

  registerWindowBenchmarks();
  registerSceneBenchmarks();
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();

  SoQuillform::finish();
  return reporter.hasErrors() ? 1 : 0;
}
