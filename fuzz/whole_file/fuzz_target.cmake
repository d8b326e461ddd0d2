add_executable(fuzz_whole_file ${CMAKE_CURRENT_LIST_DIR}/fuzz_whole_file.cpp)
ds_link_modules(fuzz_whole_file ds_exports)
target_link_options(fuzz_whole_file PRIVATE -fsanitize=fuzzer)
