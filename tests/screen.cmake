# One CTest test per folder of tests/screen: ruleforge-edit's full-screen face
# driven in a pseudo-terminal (see tests/run_screen.sh).
file(GLOB RULEFORGE_SCREEN_CASES LIST_DIRECTORIES true ${CMAKE_CURRENT_LIST_DIR}/screen/*)
foreach(case_dir ${RULEFORGE_SCREEN_CASES})
  if(NOT IS_DIRECTORY ${case_dir})
    continue()
  endif()
  get_filename_component(case ${case_dir} NAME)
  add_test(NAME screen.${case}
           COMMAND ${CMAKE_CURRENT_LIST_DIR}/run_screen.sh $<TARGET_FILE_DIR:ruleforge-edit>
                   ${case_dir})
  set_tests_properties(screen.${case} PROPERTIES LABELS screen SKIP_RETURN_CODE 77)
endforeach()
