#ifndef QUILLFORM_BENCH_OPENWINDOWS_H
#define QUILLFORM_BENCH_OPENWINDOWS_H

/// Registers the benchmarks of opening forms as windows, and of changing an open one.
void registerWindowBenchmarks();

#endif // QUILLFORM_BENCH_OPENWINDOWS_H
