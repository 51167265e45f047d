# What a user reads and runs first: the manual page must match the program's
# options, messages and files (the bundled example regenerating itself is the
# end-to-end cases office-example*).
add_test(NAME docs.manual
         COMMAND ${CMAKE_CURRENT_LIST_DIR}/check_manual.sh ${CMAKE_CURRENT_SOURCE_DIR})
add_test(NAME docs.manual-check
         COMMAND ${CMAKE_CURRENT_LIST_DIR}/check_manual.sh ${CMAKE_CURRENT_SOURCE_DIR} ruleforge-check)
add_test(NAME docs.manual-update
         COMMAND ${CMAKE_CURRENT_LIST_DIR}/check_manual.sh ${CMAKE_CURRENT_SOURCE_DIR} ruleforge-update
                 library)
add_test(NAME docs.manual-edit
         COMMAND ${CMAKE_CURRENT_LIST_DIR}/check_manual.sh ${CMAKE_CURRENT_SOURCE_DIR} ruleforge-edit)
set_tests_properties(docs.manual-edit PROPERTIES LABELS docs SKIP_RETURN_CODE 77)
# The bundled example checks clean: no finding, status 0.
add_test(NAME docs.example-check
         COMMAND $<TARGET_FILE:ruleforge-check> -t office.tpl office.flt
         WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}/examples)
set_tests_properties(docs.example-check PROPERTIES LABELS docs FAIL_REGULAR_EXPRESSION "warning")
set_tests_properties(docs.manual docs.manual-check docs.manual-update PROPERTIES LABELS docs)
set_tests_properties(docs.manual docs.manual-check docs.manual-update PROPERTIES SKIP_RETURN_CODE 77)
# Includes point down the layers only.
add_test(NAME layers.includes COMMAND ${CMAKE_CURRENT_LIST_DIR}/check_layers.sh ${CMAKE_CURRENT_SOURCE_DIR})
