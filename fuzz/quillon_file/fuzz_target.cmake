add_executable(fuzz_quillon_file ${CMAKE_CURRENT_LIST_DIR}/fuzz_quillon_file.cpp)
ds_link_modules(fuzz_quillon_file ds_exports)
target_link_options(fuzz_quillon_file PRIVATE -fsanitize=fuzzer)
