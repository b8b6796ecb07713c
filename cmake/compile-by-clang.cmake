# From here on clang compiles, in a third of the time, with the headers and for the libraries of the compiler that the preset
# names. What is shipped is that compiler's.

set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_CURRENT_LIST_DIR}/compile-by-clang.sh ${CCACHE})

# The library compares types by a function of its own, which clang takes for one to be written wherever it is called.
add_compile_options(
  "$<$<COMPILE_LANGUAGE:CXX>:SHELL:--target=x86_64-w64-windows-gnu -femulated-tls -nostdinc++>"
  "$<$<COMPILE_LANGUAGE:CXX>:SHELL:-U__GXX_TYPEINFO_EQUALITY_INLINE -D__GXX_TYPEINFO_EQUALITY_INLINE=0>"
  "$<$<COMPILE_LANGUAGE:CXX>:SHELL:-fpch-instantiate-templates -Xclang -fno-pch-timestamp -Wno-unknown-warning-option>")

# CMake leaves out what the compiler knows by itself. Of what is below its own folder clang has its own.
foreach(folder IN LISTS CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES)
  if(folder MATCHES "/include/c\\+\\+|^/usr/[^/]*mingw32/include$")
    add_compile_options("$<$<COMPILE_LANGUAGE:CXX>:SHELL:-isystem ${folder}>")
  endif()
endforeach()
