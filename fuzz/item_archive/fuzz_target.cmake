add_executable(fuzz_item_archive ${CMAKE_CURRENT_LIST_DIR}/fuzz_item_archive.cpp)
ds_link_modules(fuzz_item_archive ds_core)
target_link_options(fuzz_item_archive PRIVATE -fsanitize=fuzzer)
