# One CTest test per folder of tests/e2e (see tests/run_case.sh for the files a
# case may hold). Cases that pass -d share /tmp/template.dmp and never run at
# the same time. With RULEFORGE_MEMCHECK, every case also runs under valgrind.
file(GLOB RULEFORGE_E2E_CASES LIST_DIRECTORIES true ${CMAKE_CURRENT_LIST_DIR}/e2e/*)
option(RULEFORGE_MEMCHECK "Also run the end-to-end cases under valgrind memcheck" OFF)
if(RULEFORGE_MEMCHECK)
  find_program(RULEFORGE_VALGRIND valgrind REQUIRED)
endif()
foreach(case_dir ${RULEFORGE_E2E_CASES})
  if(NOT IS_DIRECTORY ${case_dir})
    continue()
  endif()
  get_filename_component(case ${case_dir} NAME)
  set(lock "")
  if(EXISTS ${case_dir}/args)
    file(STRINGS ${case_dir}/args case_args)
    if("-d" IN_LIST case_args)
      set(lock template_dump)
    endif()
  endif()
  add_test(NAME e2e.${case}
           COMMAND ${CMAKE_CURRENT_LIST_DIR}/run_case.sh $<TARGET_FILE_DIR:ruleforge> ${case_dir})
  set_tests_properties(e2e.${case} PROPERTIES LABELS e2e)
  if(lock)
    set_tests_properties(e2e.${case} PROPERTIES RESOURCE_LOCK ${lock})
  endif()
  if(RULEFORGE_MEMCHECK AND NOT EXISTS ${case_dir}/no-memcheck)
    add_test(NAME memcheck.${case}
             COMMAND ${CMAKE_CURRENT_LIST_DIR}/run_case.sh $<TARGET_FILE_DIR:ruleforge> ${case_dir})
    set_tests_properties(memcheck.${case} PROPERTIES
      LABELS memcheck
      ENVIRONMENT "RULEFORGE_WRAPPER=${RULEFORGE_VALGRIND} -q --error-exitcode=99 --leak-check=full --show-leak-kinds=all --errors-for-leak-kinds=all")
    if(lock)
      set_tests_properties(memcheck.${case} PROPERTIES RESOURCE_LOCK ${lock})
    endif()
  endif()
endforeach()
