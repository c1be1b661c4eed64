# Builds the sources as Wine itself is built: by the machine's compiler with Wine's headers. This compiler has sanitizers
# and a fuzzer, which mingw-w64 lacks. The result is a Wine program, NAME.exe.so.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_CXX_LINK_EXECUTABLE "winegcc -b x86_64-linux-gnu -mconsole <LINK_FLAGS> <OBJECTS> -o <TARGET> <LINK_LIBRARIES>")
set(CMAKE_EXECUTABLE_SUFFIX_CXX .exe.so)
