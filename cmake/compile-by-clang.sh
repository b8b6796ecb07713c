#!/bin/sh
# Stands in front of a compiler's command, which may begin with the compiler cache, and has clang do it instead.
cache=
case $1 in
    *ccache) cache=$1 && shift ;;
esac
shift
exec $cache clang++ "$@"
