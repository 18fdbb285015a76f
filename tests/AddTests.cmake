# Run behind a test program's build: writes the CTest file FILE, in which each test of PROGRAM is a
# test, named behind PREFIX and with PROPERTIES. BY_SUITE: each suite is one; a failure's output names
# what failed in it.
execute_process(COMMAND "${PROGRAM}" --gtest_list_tests OUTPUT_VARIABLE list
                COMMAND_ERROR_IS_FATAL ANY)
# A suite's line ends in a point, its tests' lines are indented; what tells their parameters follows
# a number sign.
string(REGEX REPLACE " *#[^\n]*" "" list "${list}")
string(REGEX MATCHALL "[^\n]+" lines "${list}")
set(text "")
foreach(line ${lines})
    set(filter "")
    if(line MATCHES "^[^ ]+\\.$")
        string(REGEX REPLACE "\\.$" "" suite "${line}")
        if(BY_SUITE)
            set(name "${suite}")
            set(filter "${suite}.*")
        endif()
    elseif(line MATCHES "^  ([^ ]+)$" AND NOT BY_SUITE)
        set(name "${suite}.${CMAKE_MATCH_1}")
        set(filter "${name}")
    endif()
    if(filter)
        string(APPEND text "add_test([==[${PREFIX}${name}]==] [==[${PROGRAM}]==]"
                           " [==[--gtest_filter=${filter}]==])\n"
                           "set_tests_properties([==[${PREFIX}${name}]==] PROPERTIES"
                           " ${PROPERTIES})\n")
    endif()
endforeach()
file(WRITE "${FILE}" "${text}")
