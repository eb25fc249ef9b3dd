#include <cstdlib>
#include <gtest/gtest.h>
#include <property/Session.h>
#include <support/TestFiles.h>

namespace {

/// A number from the environment, for playing a failure again or for looking longer.
unsigned fromEnvironment(const char* name, unsigned otherwise)
{
  const char* text = std::getenv(name);
  return text ? static_cast<unsigned>(std::strtoul(text, nullptr, 10)) : otherwise;
}

} // namespace

/// Random dialogs under random changes and random users.
///
/// The seeds are fixed, so that a change is judged by the same dialogs as the one before it; to look for more, set
/// QUILLFORM_TEST_SEED to other ones. A failure prints its seed. QUILLFORM_TEST_SEED plays it again, in the test of the
/// same form; QUILLFORM_TEST_STEPS sets the number of steps, and with QUILLFORM_TEST_TRACE every step is printed before
/// it is made.
class RandomTreesTest : public QuillformTest, public ::testing::WithParamInterface<unsigned> {
protected:
  static constexpr int steps = 200; ///< of each seed in each form: thousands in all, within a minute

  void run(Session::Form form, unsigned seed)
  {
    Session session(fromEnvironment("QUILLFORM_TEST_SEED", seed), form);
    session.run(static_cast<int>(fromEnvironment("QUILLFORM_TEST_STEPS", static_cast<unsigned>(steps))));
  }
};

TEST_P(RandomTreesTest, inAWindow)
{
  run(Session::WINDOW, GetParam());
}

TEST_P(RandomTreesTest, inTheScene)
{
  run(Session::SCENE, GetParam());
}

TEST_P(RandomTreesTest, inBothForms)
{
  run(Session::BOTH, GetParam());
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomTreesTest, ::testing::Range(1U, 9U));
