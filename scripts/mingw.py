"""Where the compiler of the program keeps its headers, for a parser that is another one."""
GCC = '/usr/lib/gcc/x86_64-w64-mingw32/12-posix'
SYSTEM_HEADERS = (f'{GCC}/include/c++', f'{GCC}/include/c++/x86_64-w64-mingw32', '/usr/x86_64-w64-mingw32/include')
