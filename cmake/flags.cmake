add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Werror)

# Windows as both builds see it.
add_library(win32 INTERFACE)
target_compile_definitions(win32 INTERFACE UNICODE _UNICODE WINVER=0x0A00 _WIN32_WINNT=0x0A00 STRICT NOMINMAX
  WIN32_LEAN_AND_MEAN)
# The headers then declare functions of the common controls as not imported: mfc/ has its own, which load the library.
target_compile_definitions(win32 INTERFACE _COMCTL32_)

if(WIN32)
  # GCC 12 sees overlapping copies in std::string where there are none.
  add_compile_options(-Wno-restrict)
  # One file that runs on a bare machine, hardened, and the same bytes from the same sources.
  add_compile_options(-fno-threadsafe-statics -ffunction-sections -fdata-sections -fstack-protector-strong
    -ffile-prefix-map=${CMAKE_SOURCE_DIR}=.)
  add_link_options(-static -fstack-protector-strong -Wl,--gc-sections -Wl,--dynamicbase -Wl,--high-entropy-va -Wl,--nxcompat
    -Wl,--no-insert-timestamp -Wl,--major-os-version,10,--minor-os-version,0
    -Wl,--major-subsystem-version,10,--minor-subsystem-version,0)
  set(CMAKE_CXX_FLAGS_RELEASE "-Os -DNDEBUG")
  set(CMAKE_EXE_LINKER_FLAGS_RELEASE "-s")
else()
  # Libraries and programs have the same flags, as they share precompiled headers. With what the fuzzer needs to see
  # where it has been. Optimized as far as stack traces and the debugger allow. Wine's COM objects have no C++ types to
  # check.
  add_compile_options(-fPIC -fsanitize=address,undefined,fuzzer-no-link -fno-sanitize=vptr -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  set(CMAKE_CXX_FLAGS_DEBUG "-O1 -g")
  # What winegcc defines for a C compiler, but for the characters, which are char16_t.
  target_compile_definitions(win32 INTERFACE WINE_UNICODE_CHAR16 __WINE__ _WIN32 _WIN64 __int8=char __int16=short
    __int32=int __int64=long)
  target_compile_options(win32 INTERFACE "-D__declspec(x)=__declspec_##x" "-D__declspec_dllimport=" "-D__declspec_dllexport="
    "-D__declspec_novtable=" "-D__declspec_align(x)=__attribute__((aligned(x)))"
    "-D__declspec_noreturn=__attribute__((noreturn))" "-D__declspec_selectany=__attribute__((weak))")
  target_include_directories(win32 SYSTEM INTERFACE cmake/sanitized /usr/include/wine/wine/windows)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libclang_rt.asan-x86_64.so
    OUTPUT_VARIABLE sanitizers OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  # What Windows' own build takes by itself.
  target_link_libraries(win32 INTERFACE ${sanitizers} comdlg32 advapi32 gdi32 user32 kernel32 stdc++ m)
endif()
target_link_libraries(win32 INTERFACE comctl32 ole32 rpcrt4 uuid)
