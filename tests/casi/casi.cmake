# SPDX-License-Identifier: MIT
# Read by ctest each time it starts: every case directory is a test, so a new one runs at once.
# CASI is tests/casi, CASI_PROGRAMMA the command that runs a case.
file(GLOB casi RELATIVE ${CASI} ${CASI}/*/*)
foreach(caso ${casi})
  if(IS_DIRECTORY ${CASI}/${caso})
    string(REPLACE "/" "." caso ${caso})
    add_test(casi_${caso} ${CASI_PROGRAMMA} --gtest_filter=casi_${caso})
    set_tests_properties(casi_${caso} PROPERTIES TIMEOUT 600)
  endif()
endforeach()
