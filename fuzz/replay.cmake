# Replays the checked-in corpus of every fuzz target as an ordinary test, with
# the target's entry function and a plain main instead of libFuzzer, so that
# the corpus and its regression inputs stay covered in any build.
foreach(target fuzz_template fuzz_data fuzz_run fuzz_check)
  add_executable(replay_${target} ${CMAKE_CURRENT_LIST_DIR}/${target}.cpp
                 ${CMAKE_CURRENT_LIST_DIR}/fuzz_support.cpp ${CMAKE_CURRENT_LIST_DIR}/replay_main.cpp)
  target_link_libraries(replay_${target} PRIVATE ruleforge_core ruleforge_check)
  target_compile_definitions(replay_${target} PRIVATE
                             RULEFORGE_FUZZ_TEMPLATE="${CMAKE_CURRENT_LIST_DIR}/rich.tpl")
  file(GLOB inputs CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/corpus/${target}/*)
  add_test(NAME fuzz_replay.${target} COMMAND replay_${target} ${inputs})
  set_tests_properties(fuzz_replay.${target} PROPERTIES LABELS fuzz_replay)
endforeach()
