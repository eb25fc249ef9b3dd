#include "RatioReporter.h"

#include <cmath>
#include <iomanip>

namespace {

/// One line of the closing table: the median of \a name, by itself or divided by that of \a reference.
struct Line {
  const char* title;
  const char* name;
  const char* reference; // nullptr for a plain time
  double target;         // largest value wanted; 0 for none
};

const Line lines[] = {
  {"open 1000 mixed rows, to a .ui file", "open_dialog_file/1000", "open_ui_file/1000", 1.0},
  {"open 1000 mixed rows, to Qt by hand", "open_dialog_file/1000", "open_by_hand/1000", 0.0},
  {"open 5000 mixed rows, to 1000", "open_dialog_file/5000", "open_dialog_file/1000", 6.0},
  {"add a row to 1000 mixed, to opening them", "add_row/1000", "open_dialog_file/1000", 0.05},
  {"add a wide row to 1000 mixed, to opening them", "add_wide_row/1000", "open_dialog_file/1000", 0.0},
  {"frame of 200 mixed rows, to a bare scene", "frame_dialog/200", "frame_bare_scene/200", 1.2},
  {"press among 200 mixed rows, ms", "press_in_scene/200", nullptr, 5.0},
  {"open 1000 simple rows, to a .ui file", "open_simple_dialog_file/1000", "open_simple_ui_file/1000", 1.0},
  {"open 1000 simple rows, to Qt by hand", "open_simple_dialog_file/1000", "open_simple_by_hand/1000", 0.0},
  {"open 5000 simple rows, to 1000", "open_simple_dialog_file/5000", "open_simple_dialog_file/1000", 6.0},
  {"add a row to 1000 simple, to opening them", "add_simple_row/1000", "open_simple_dialog_file/1000", 0.05},
  {"frame of 200 simple rows, to a bare scene", "frame_simple_dialog/200", "frame_simple_bare_scene/200", 1.2},
  {"press among 200 simple rows, ms", "press_in_simple_scene/200", nullptr, 5.0},
};

} // namespace

RatioReporter::RatioReporter() : ConsoleReporter(OO_None) {}

void RatioReporter::ReportRuns(const std::vector<Run>& runs)
{
  std::vector<Run> shown;
  for (Run run : runs) {
    m_hasErrors = m_hasErrors || run.error_occurred;
    if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median" && !run.error_occurred) {
      m_medians[run.run_name.function_name] =
        run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit) * 1000.0;
    }
    // How often something ran is the same in every run of this program, and would make the lines long.
    run.run_name.iterations.clear();
    run.run_name.repetitions.clear();
    run.run_name.time_type.clear();
    if (run.error_occurred || run.aggregate_name == "median" || run.aggregate_name == "cv") {
      shown.push_back(run);
    }
  }
  if (!shown.empty()) {
    ConsoleReporter::ReportRuns(shown);
  }
}

bool RatioReporter::hasErrors() const
{
  return m_hasErrors;
}

double RatioReporter::getMedian(const char* name) const
{
  const auto found = m_medians.find(name);
  return found != m_medians.end() ? found->second : std::nan("");
}

void RatioReporter::Finalize()
{
  ConsoleReporter::Finalize();
  std::ostream& out = GetOutputStream();
  out << '\n'
      << std::left << std::setw(52) << "median of" << std::right << std::setw(9) << "value" << std::setw(10) << "target"
      << '\n';
  for (const Line& line : lines) {
    const double value = getMedian(line.name) / (line.reference ? getMedian(line.reference) : 1.0);
    if (std::isnan(value)) {
      continue; // filtered out, or failed with a message above
    }
    out << std::left << std::setw(52) << line.title << std::right << std::setw(9) << std::fixed << std::setprecision(3)
        << value;
    if (line.target > 0.0) {
      out << std::setw(6) << "<= " << std::setprecision(2) << line.target << (value <= line.target ? "" : "  missed");
    }
    out << '\n';
  }
  out.flush();
}
