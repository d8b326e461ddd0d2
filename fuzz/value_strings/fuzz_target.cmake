add_executable(fuzz_value_strings ${CMAKE_CURRENT_LIST_DIR}/fuzz_value_strings.cpp)
ds_link_modules(fuzz_value_strings ds_datacore)
target_link_options(fuzz_value_strings PRIVATE -fsanitize=fuzzer)
