#ifndef QUILLFORM_BENCH_STOPWATCH_H
#define QUILLFORM_BENCH_STOPWATCH_H

#include <ctime>

/// Seconds of processor time, of all threads and with the time inside the system, since it was made and between
/// laps. Nothing that is measured here waits for anything, and other programs hardly disturb this clock.
class Stopwatch {
public:
  double lap()
  {
    const double now = read();
    const double passed = now - m_lap;
    m_lap = now;
    return passed;
  }

  double total() const
  {
    return read() - m_start;
  }

private:
  static double read()
  {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
  }

  double m_start = read();
  double m_lap = m_start;
};

#endif // QUILLFORM_BENCH_STOPWATCH_H
