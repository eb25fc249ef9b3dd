#ifndef QUILLFORM_TESTS_RANDOM_H
#define QUILLFORM_TESTS_RANDOM_H

#include <cstddef>
#include <random>
#include <vector>

/// Choices that follow from a seed, the same on every machine.
class Random {
public:
  explicit Random(unsigned seed) : m_engine(seed) {}

  /// From 0 to \a count - 1.
  int below(int count)
  {
    return static_cast<int>(m_engine() % static_cast<unsigned>(count)); // a distribution is free to differ
  }

  int between(int first, int last)
  {
    return first + below(last - first + 1);
  }

  bool oneIn(int count)
  {
    return below(count) == 0;
  }

  template <class Value>
  const Value& of(const std::vector<Value>& values)
  {
    return values[static_cast<std::size_t>(below(static_cast<int>(values.size())))];
  }

private:
  std::mt19937 m_engine;
};

#endif // QUILLFORM_TESTS_RANDOM_H
