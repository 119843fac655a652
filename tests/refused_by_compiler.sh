#!/usr/bin/env bash
# What must not build, since it would link and go wrong in silence: each snippet is compiled alone,
# and the compiler has to name the fault.
# usage: refused_by_compiler.sh SOURCE-FOLDER COMPILER
set -uo pipefail
sources=$1
compiler=("$2" -std=c++20 -fsyntax-only -Werror -Wmissing-declarations -I "$sources" -x c++ -)
failed=0

# row NAME MESSAGE SNIPPET: an empty MESSAGE wants the snippet to compile.
row()
{
    local output status=0
    output=$(printf '#include "ymap_walkers.h"\nusing namespace ymap;\n%s\n' "$3" |
        "${compiler[@]}" 2>&1) || status=$?
    if [ -z "$2" ]; then
        [ $status -eq 0 ] && return
    elif [ $status -ne 0 ] && grep -qE -- "$2" <<<"$output"; then
        return
    fi
    printf 'refused_by_compiler: %s\n%s\n' "$1" "$output"
    failed=1
}

target='{NS_IETF_INTERFACES, "/a"}'
text() { echo "constexpr LogText<$1> text{MAP_LOG_TRACE, \"$2\"};"; }
report="static void f(OzkMapCtx* ctx) { static SiteWord site; log_point<text>(ctx, YMAP_HERE, site"

row "good rows" "" "
    YMAP_CONTAINER_HANDLER(ymap_x_cont_lvla_a, EmptyHandler);
    YMAP_CONTAINER_HANDLER(ymap_x_cont_lvla_b, WholeContainer, $target);
    YMAP_HANDLER(ymap_x_list_lvla_a_b, PathList, $target);
    YMAP_HANDLER(ymap_x_leaf_lvla_a_b, MappedLeaf, $target);
    $(text "const char*" "a tag '%s'") $report, \"x\"); }"

row "conversions without arguments" "text_asks_for_other_arguments" "$(text "" "%s %d")"
row "a conversion that is no text" "text_asks_for_other_arguments" "$(text "const char*" "%d")"
row "more arguments than conversions" "text_asks_for_other_arguments" \
    "$(text "const char*, const char*" "%s")"
row "a text that is too long" "text_is_too_long" "$(text "" "$(printf 'x%.0s' {1..55})")"
row "a log point without its argument" "asks for other arguments" \
    "$(text "const char*" "%s") $report); }"
row "a log point with an argument of another type" "asks for other arguments" \
    "$(text "const char*" "%s") $report, 7); }"

row "a text at a level that nothing has" "level_is_unknown" "constexpr LogText<> text{7, \"a\"};"

row "a leaf's shape on a container" "MappedLeaf is no shape" \
    "YMAP_CONTAINER_HANDLER(ymap_x_cont_lvla_a, MappedLeaf, $target);"
row "a list's shape on a container" "BareList is no shape" \
    "YMAP_CONTAINER_HANDLER(ymap_x_cont_lvla_a, BareList);"
row "a container's shape on a leaf" "WholeContainer is no shape" \
    "YMAP_HANDLER(ymap_x_leaf_lvla_a_b, WholeContainer, $target);"
row "a when container's shape on a list" "WhenContainer is no shape" \
    "OzkMapWhenFunction when; YMAP_HANDLER(ymap_x_list_lvla_a_b, WhenContainer, when);"
row "a leaf's shape on a list" "MappedLeaf is no shape" \
    "YMAP_HANDLER(ymap_x_list_lvla_a_b, MappedLeaf, $target);"
row "a list's shape on a hook" "BareList is no shape" \
    "YMAP_HANDLER(ymap_x_lvla_a_parse_augments, BareList);"
row "a container's name in another row" "EmptyHandler is no shape for a row" \
    "YMAP_HANDLER(ymap_x_cont_lvla_a, EmptyHandler);"
row "a leaf's name in a container's row" "EmptyHandler is no shape for a container's row" \
    "YMAP_CONTAINER_HANDLER(ymap_x_leaf_lvla_a_b, EmptyHandler);"
row "a manual leaf that isn't there" "error" \
    "YMAP_HANDLER(ymap_x_leaf_lvla_a_b, ManualLeafCaller, nullptr);"
row "a path in the namespace's place" "path_does_not_begin_with_a_slash" \
    "constexpr Target target{\"/a\", NS_IETF_INTERFACES};"

# clang says nothing of functions without a declaration.
[[ $2 == *clang* ]] || row "a walker that neither a row nor a header declares" "no previous declaration" "
    struct Ports {
        static constexpr const char* ns_uri  = NS_IETF_INTERFACES;
        static constexpr Direction direction = Direction::to_ietf;
        static constexpr bool gated = false, whole = false;
    };
    #define YMAP_NAME(KIND, STEM) ymap_x_##KIND##STEM
    extern \"C\" {
    YMAP_CONTAINER(Ports, lvla_a, YMAP_LEAF(\"b\", lvla_a_b));
    }"

exit $failed
