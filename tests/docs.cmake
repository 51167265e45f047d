# What a user reads and runs first: the manual page must match the program's
# options, messages and files, and the bundled example must regenerate itself.
add_test(NAME docs.manual
         COMMAND ${CMAKE_CURRENT_LIST_DIR}/check_manual.sh ${CMAKE_CURRENT_SOURCE_DIR})
add_test(NAME docs.example
         COMMAND ${CMAKE_CURRENT_LIST_DIR}/check_example.sh $<TARGET_FILE:ruleforge>
                 ${CMAKE_CURRENT_SOURCE_DIR}/examples)
set_tests_properties(docs.manual docs.example PROPERTIES LABELS docs)
set_tests_properties(docs.manual docs.example PROPERTIES SKIP_RETURN_CODE 77)
# Includes point down the layers only.
add_test(NAME layers.includes COMMAND ${CMAKE_CURRENT_LIST_DIR}/check_layers.sh ${CMAKE_CURRENT_SOURCE_DIR})
