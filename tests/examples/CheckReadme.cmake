# The first program and its dialog stand in README.md exactly as they are in examples/, and the program is short.
#
#   cmake -DTREE=<source tree> -P CheckReadme.cmake

cmake_minimum_required(VERSION 3.22)

file(READ "${TREE}/README.md" readme)

function(check_shown file language)
  file(READ "${TREE}/examples/${file}" text)
  string(FIND "${readme}" "\n```${language}\n${text}```\n" place)
  if(place EQUAL -1)
    message(SEND_ERROR "README.md does not show examples/${file} as it is: copy the file between \"```${language}\" "
      "and \"```\".")
  endif()
endfunction()

check_shown(first.cpp cpp)
check_shown(first.iv "")

file(READ "${TREE}/examples/first.cpp" text)
string(REGEX REPLACE "[^\n]" "" ends "${text}")
string(LENGTH "${ends}" lines)
if(lines GREATER 30)
  message(SEND_ERROR "examples/first.cpp has ${lines} lines; a first program has at most 30.")
endif()
