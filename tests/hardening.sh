#!/usr/bin/env bash
# Checks that a released program is hardened as tools/cmake/hardening.cmake says. $1: the program.
set -euo pipefail
headers=$(LC_ALL=C readelf --wide --file-header --program-headers --dynamic --notes "$1")
symbols=$(LC_ALL=C readelf --wide --dyn-syms "$1")

# has WHAT TEXT PATTERN
has() {
    grep -qE -- "$3" <<<"$2" && return
    echo "missing: $1"
    exit 1
}

has "an address of its own" "$headers" '^ *Type: +DYN'
has "read-only tables of the linker" "$headers" '^ *GNU_RELRO'
has "all symbols bound at start" "$headers" 'FLAGS.*(BIND_NOW|NOW)'
has "a stack without code" "$headers" '^ *GNU_STACK .* RW +0x'
has "checked stack frames" "$symbols" ' __stack_chk_fail'
if [ "$(uname -m)" = x86_64 ]; then
    # The mark that lets the system check depends on the system's own start code as well.
    has "marked targets of calls" "$(objdump -d "$1" | grep -m 100 endbr64 | wc -l)" '^100$'
fi
