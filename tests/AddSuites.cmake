# Run behind a test program's build: writes the CTest file FILE, in which each suite of tests in
# PROGRAM is a test, named behind PREFIX and with PROPERTIES. A process for every single test would
# take longer than the tests do; a failure's output names the test.
execute_process(COMMAND "${PROGRAM}" --gtest_list_tests OUTPUT_VARIABLE list
                COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "\n[^ \n]+\\.( +#|\n)" suites "${list}")
set(text "")
foreach(suite ${suites})
    string(REGEX REPLACE "^\n|\\.[ #\n]*$" "" suite "${suite}")
    string(APPEND text "add_test([==[${PREFIX}${suite}]==] [==[${PROGRAM}]==]"
                       " [==[--gtest_filter=${suite}.*]==])\n"
                       "set_tests_properties([==[${PREFIX}${suite}]==] PROPERTIES ${PROPERTIES})\n")
endforeach()
file(WRITE "${FILE}" "${text}")
