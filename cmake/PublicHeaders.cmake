# Writes the public headers and all that they include, with SOURCE's folders kept:
#   cmake -DSOURCE=FOLDER -DTARGET=FOLDER -DHEADERS=LIST -P PublicHeaders.cmake
# The sources include by paths from the project's root ("platform/services.h"). In a host such a path
# may lead to a file of the host's own, so the copies include each other as <kelvane/platform/services.h>;
# the host's include path then needs the one folder above, and nothing in it can be mistaken.
cmake_minimum_required(VERSION 3.25)

set(left ${HEADERS})
set(written)
while(left)
    list(POP_FRONT left header)
    if(header IN_LIST written)
        continue()
    endif()
    list(APPEND written "${header}")
    file(READ "${SOURCE}/${header}" text)
    string(REGEX MATCHALL "#include \"[^\"\n]+\"" includes "${text}")
    foreach(include ${includes})
        string(REGEX REPLACE "#include \"(.*)\"" "\\1" include "${include}")
        list(APPEND left "${include}")
    endforeach()
    string(REGEX REPLACE "#include \"([^\"\n]+)\"" "#include <kelvane/\\1>" text "${text}")
    # One that did not change keeps its time, so that nothing is compiled again for it.
    set(there)
    if(EXISTS "${TARGET}/${header}")
        file(READ "${TARGET}/${header}" there)
    endif()
    if(NOT there STREQUAL text)
        file(WRITE "${TARGET}/${header}" "${text}")
    endif()
endwhile()

# One that is public no more does not stay behind.
file(GLOB_RECURSE found RELATIVE "${TARGET}" "${TARGET}/*/*.h")
list(REMOVE_ITEM found ${written})
list(TRANSFORM found PREPEND "${TARGET}/")
if(found)
    file(REMOVE ${found})
endif()
