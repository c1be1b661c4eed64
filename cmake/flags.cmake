add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  # GCC 12 sees overlapping copies in std::string where there are none.
  add_compile_options(-Wno-restrict)
endif()

if(WIN32)
  # One file that runs on a bare machine, hardened, and the same bytes from the same sources.
  add_compile_options(-fno-threadsafe-statics -ffunction-sections -fdata-sections -fstack-protector-strong
    -ffile-prefix-map=${CMAKE_SOURCE_DIR}=.)
  add_link_options(-static -fstack-protector-strong -Wl,--gc-sections -Wl,--dynamicbase -Wl,--high-entropy-va -Wl,--nxcompat
    -Wl,--no-insert-timestamp -Wl,--major-os-version,10,--minor-os-version,0
    -Wl,--major-subsystem-version,10,--minor-subsystem-version,0)
  set(CMAKE_CXX_FLAGS_RELEASE "-Os -DNDEBUG")
  set(CMAKE_EXE_LINKER_FLAGS_RELEASE "-s")
endif()

# With what the fuzzer needs to see where it has been. Optimized as far as stack traces and the debugger allow: the
# sanitizers' checks cost several times as much without.
if(QB_SANITIZE)
  add_compile_options(-fsanitize=address,undefined,fuzzer-no-link -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
  set(CMAKE_CXX_FLAGS_DEBUG "-O1 -g")
endif()
