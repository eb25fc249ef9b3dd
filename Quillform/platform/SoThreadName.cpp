#include <Quillform/platform/SoThreadName.h>

#include <array>
#include <pthread.h>
#include <string>

namespace {
constexpr std::size_t capacity = 16; // with the zero at the end; a longer name would be refused
}

void SoThreadName::setCurrent(const SbString& name)
{
  const std::string kept = std::string(name.getString()).substr(0, capacity - 1);
  pthread_setname_np(pthread_self(), kept.c_str());
}

SbString SoThreadName::getCurrent()
{
  std::array<char, capacity> name{};
  return pthread_getname_np(pthread_self(), name.data(), name.size()) == 0 ? SbString(name.data()) : SbString();
}
