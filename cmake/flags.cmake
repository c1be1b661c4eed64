add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Werror)

# The definitions for windows.h in both builds.
add_library(win32 INTERFACE)
target_compile_definitions(win32 INTERFACE UNICODE _UNICODE WINVER=0x0A00 _WIN32_WINNT=0x0A00 STRICT NOMINMAX
  WIN32_LEAN_AND_MEAN)
# With this definition, the headers declare the functions of the common controls as not imported. mfc/ defines these
# functions itself, and loads the library at run time.
target_compile_definitions(win32 INTERFACE _COMCTL32_)

if(WIN32)
  # GCC 12 warns wrongly about overlapping copies in std::string.
  add_compile_options(-Wno-restrict)
  # The program is a single hardened file without run-time libraries, and the same sources give the same bytes.
  add_compile_options(-fno-threadsafe-statics -ffunction-sections -fdata-sections -fstack-protector-strong
    -ffile-prefix-map=${CMAKE_SOURCE_DIR}=.)
  add_link_options(-static -fstack-protector-strong -Wl,--gc-sections -Wl,--dynamicbase -Wl,--high-entropy-va -Wl,--nxcompat
    -Wl,--no-insert-timestamp -Wl,--major-os-version,10,--minor-os-version,0
    -Wl,--major-subsystem-version,10,--minor-subsystem-version,0)
  set(CMAKE_CXX_FLAGS_RELEASE "-Os -DNDEBUG")
  set(CMAKE_EXE_LINKER_FLAGS_RELEASE "-s")
else()
  # All libraries and programs have the same flags, because they share precompiled headers. fuzzer-no-link adds the coverage
  # that the fuzzer needs. vptr is off because Wine's COM objects have no C++ types.
  add_compile_options(-fPIC -fsanitize=address,undefined,fuzzer-no-link -fno-sanitize=vptr -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  set(CMAKE_CXX_FLAGS_DEBUG "-O1 -g")
  # The definitions that winegcc makes for a C compiler, except that wide characters are char16_t.
  target_compile_definitions(win32 INTERFACE WINE_UNICODE_CHAR16 __WINE__ _WIN32 _WIN64 __int8=char __int16=short
    __int32=int __int64=long)
  target_compile_options(win32 INTERFACE "-D__declspec(x)=__declspec_##x" "-D__declspec_dllimport=" "-D__declspec_dllexport="
    "-D__declspec_novtable=" "-D__declspec_align(x)=__attribute__((aligned(x)))"
    "-D__declspec_noreturn=__attribute__((noreturn))" "-D__declspec_selectany=__attribute__((weak))")
  target_include_directories(win32 SYSTEM INTERFACE cmake/sanitized /usr/include/wine/wine/windows)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libclang_rt.asan-x86_64.so
    OUTPUT_VARIABLE sanitizers OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  # The libraries that mingw-w64 links by default.
  target_link_libraries(win32 INTERFACE ${sanitizers} comdlg32 advapi32 gdi32 user32 kernel32 stdc++ m)
endif()
target_link_libraries(win32 INTERFACE comctl32 ole32 rpcrt4 uuid)
