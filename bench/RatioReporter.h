#ifndef QUILLFORM_BENCH_RATIOREPORTER_H
#define QUILLFORM_BENCH_RATIOREPORTER_H

#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

/// Prints medians and their variation and, at the end, what the medians say about Quillform and its peers.
class RatioReporter : public benchmark::ConsoleReporter {
public:
  RatioReporter();

  void ReportRuns(const std::vector<Run>& runs) override;
  void Finalize() override;

  /// True when a benchmark could not be run, or what it measured was not complete.
  bool hasErrors() const;

private:
  double getMedian(const char* name) const;

  std::map<std::string, double> m_medians; // in milliseconds, by name of the benchmark
  bool m_hasErrors = false;
};

#endif // QUILLFORM_BENCH_RATIOREPORTER_H
