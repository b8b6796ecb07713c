#!/usr/bin/env bash
# Runs the stories of the program under Wine on a virtual display, in a fresh prefix.
#
# usage: scripts/run-wizard-tests.sh [BUILD_DIR] [GoogleTest arguments]
# Without a build folder the preset's is brought up to date and taken.
set -uo pipefail
source "$(dirname "$0")/common.sh"
source scripts/wine.sh

case ${1:--} in
    -*)
        build_folder=build/windows
        build windows kestrune_wizard_tests || exit 1
        ;;
    *)
        build_folder=$1
        shift
        ;;
esac

program=$build_folder/tests/wizard/kestrune_wizard_tests.exe
# Half of a test is waiting, and only one copy of the program runs at a time in a prefix, so the tests are dealt to
# several prefixes, two for each processor.
shards=$((2 * ${#processors[@]}))
[[ " $* " != *--gtest_filter* ]] || shards=1

# The user's language is the process's, so the tests that follow it run once in each of these: the locale, the
# identifier that the system gives it, and the code of the language file.
languages='de_DE 1031 de
pt_BR 1046 pt_br
pt_PT 2070 pt_br
zh_CN 2052 zh_cn
zh-SG 4100 zh_cn
zh_TW 1028 zh_tw
zh_HK 3076 zh_tw
sr_RS@latin 9242 sr_Latn
sr-Cyrl-RS 10266 en
nb_NO 1044 nb
id_ID 1057 id_ID
he_IL 1037 en'

# The reports that rollouts leave, to be held against their schema; the tests know the folder as Windows does. Each shard has
# its own, since programs of two prefixes can have the same number.
reports=$root/build/rollout-reports
rm -rf "$reports"
windows_reports="Z:${reports//\//\\}"

language_tests=LanguageTest.FollowsTheLanguageOfTheUser:HelpTest.OpensThePagesTopicInTheLanguageOfTheUser

run_languages() {
    local locale identifier language_code code=0
    while read -r locale identifier language_code; do
        LC_ALL=$locale KESTRUNE_USER_LANGUAGE=$identifier KESTRUNE_LANGUAGE_CODE=$language_code \
            wine "$program" --gtest_brief=1 --gtest_filter="$language_tests" \
            < /dev/null > "$prefix/language.log" 2>&1 || {
            cat "$prefix/language.log"
            echo "failed in the language $locale"
            code=1
        }
    done <<< "$languages"
    return $code
}

# run_shard INDEX ARGUMENT...: runs its share of the tests in a prefix and on a display of its own.
run_shard() {
    local index=$1 prefix=$wine_home/wizard-tests-$1 code=0
    shift
    stay_on_processor "$index"
    wine_new_prefix "$prefix"
    start_display
    KESTRUNE_REPORTS="$windows_reports\\$index" GTEST_TOTAL_SHARDS=$shards GTEST_SHARD_INDEX=$index \
        run_to_its_end 1800 wine "$program" "$@" || code=1
    [ "$shards" = 1 ] || [ "$index" != 0 ] || run_languages || code=1
    wine_stop "$prefix"
    return $code
}

wine_make_template
# What failed beside two other shards is tried once more with nothing beside it: a mouse and a keyboard that wait their
# turn on a loaded machine are no fault of the program. A test that fails alone as well has failed.
run_alone() {
    local failed
    failed=$(failed_tests "$logs"/*)
    [ -n "$failed" ] || return 1
    echo "Once more with nothing beside: $failed"
    stay_on_processor 0
    wine_new_prefix "$wine_home/wizard-tests-0"
    start_display
    run_to_its_end 300 wine "$program" --gtest_brief=1 "--gtest_filter=$failed"
    local result=$?
    [ $result != 0 ] || note_second_try "$failed" || result=1
    wine_stop "$wine_home/wizard-tests-0"
    return $result
}

code=0
logs=$(mktemp -d "${SUITE_LOG:-/tmp/wizard}.XXXXXX")
for ((index = 0; index < shards; ++index)); do
    (run_shard "$index" "$@") > "$logs/$index" &
    processes[index]=$!
done
for ((index = 0; index < shards; ++index)); do
    wait "${processes[index]}" || code=1
    cat "$logs/$index"
done
if [ $code != 0 ] && may_try_again && ! grep -aq '^failed in the language' "$logs"/*; then (run_alone) && code=0; fi
rm -rf "$logs"
if [ $shards != 1 ] || [ -d "$reports" ]; then scripts/check-reports.py "$reports" || code=1; fi
exit $code
