#ifndef QUILLFORM_BENCH_SCENEFRAMES_H
#define QUILLFORM_BENCH_SCENEFRAMES_H

/// Registers the benchmarks of forms inside a scene. They need an X display, for OpenGL.
void registerSceneBenchmarks();

#endif // QUILLFORM_BENCH_SCENEFRAMES_H
