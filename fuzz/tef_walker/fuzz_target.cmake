add_executable(fuzz_tef_walker ${CMAKE_CURRENT_LIST_DIR}/fuzz_tef_walker.cpp)
ds_link_modules(fuzz_tef_walker ds_tef)
target_link_options(fuzz_tef_walker PRIVATE -fsanitize=fuzzer)
