add_executable(fuzz_harlen_file ${CMAKE_CURRENT_LIST_DIR}/fuzz_harlen_file.cpp)
ds_link_modules(fuzz_harlen_file ds_harlen)
target_link_options(fuzz_harlen_file PRIVATE -fsanitize=fuzzer)
