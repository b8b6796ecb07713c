#!/bin/sh
# Stands between the compiler and its assembler, which looks through all sections of a file for each of them, and takes as long
# over a dozen tests as the compiler does. clang's takes a second. It wants a section to be declared once, where the compiler
# declares it for each of its names, and does not know the comments around what the program itself says in assembler.
#
# In front of the compiler's command it puts itself between the compiler's steps, each of which it is then handed with its
# program first.
case $1 in
    *g++*) exec "$@" -wrapper "$0" ;;
    *-as | as) command -v clang > /dev/null || exec "$@" ;;
    *) exec "$@" ;;
esac
while [ $# -gt 0 ]; do
    case $1 in
        -o)
            shift
            object=$1
            ;;
        *) source=$1 ;;
    esac
    shift
done
awk '/^\t\.section/ { section = $2 }
     /^\t\.linkonce/ && declared[section]++ { next }
     !/^\t\.ident|^\/(NO_)?APP/' "$source" > "$object.s" &&
    clang --target=x86_64-w64-mingw32 -c -x assembler "$object.s" -o "$object"
code=$?
rm -f "$object.s"
exit $code
