add_executable(fuzz_bind_type ${CMAKE_CURRENT_LIST_DIR}/fuzz_bind_type.cpp)
ds_link_modules(fuzz_bind_type ds_datacore)
target_link_options(fuzz_bind_type PRIVATE -fsanitize=fuzzer)
