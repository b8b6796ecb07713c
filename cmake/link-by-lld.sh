#!/bin/sh
# Stands between the compiler and its linker: lld takes a second where the linker of the compiler's package takes a
# minute. The compiler hands over the command, which begins with the linker.
shift
exec ld.lld "$@"
