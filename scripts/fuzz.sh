#!/usr/bin/env bash
# Runs the libFuzzer targets of Fuzz/ (see docs/fuzzing.md).
#
#   scripts/fuzz.sh TARGET SECONDS   run one target for SECONDS with its corpus
#   scripts/fuzz.sh --all SECONDS    run every target for SECONDS each (what CI does)
#   scripts/fuzz.sh --list           list the targets
#
# Builds the fuzz preset (clang-14, AddressSanitizer + UndefinedBehaviorSanitizer) when needed.
# New inputs that reach new code go to build/fuzz/FuzzWork/TARGET (kept between runs, read as
# corpus next time, next to the seeds the build makes in build/fuzz/FuzzCorpus/TARGET); an input
# that crashes, leaks, trips a sanitizer or breaks a target's expectation is written to
# build/fuzz/FuzzFindings/TARGET/ and the script fails. At the end it prints the inputs per second
# and the total runs. PLAIN_FUZZ_SEED fixes libFuzzer's random seed (0, the default, draws one), so
# that a run, CI's for one, can be repeated input for input.
set -euo pipefail
cd "$(dirname "$0")/.."

build=build/fuzz

targets()
{
	for source in Fuzz/Fuzz*.cpp; do
		name=${source#Fuzz/Fuzz}
		echo "${name%.cpp}"
	done
}

usage()
{
	echo "usage: $0 TARGET SECONDS | --all SECONDS | --list" >&2
	echo "targets: $(targets | tr '\n' ' ')" >&2
	exit 2
}

build_targets()
{
	if [ ! -f "$build/build.ninja" ]; then
		cmake --preset fuzz >/dev/null
	fi
	local names=()
	for target in "$@"; do
		names+=("Fuzz$target")
	done
	# A failed build must stop here: run, the missing programs would read as findings.
	local log=$build/FuzzBuild.log
	if ! cmake --build --preset fuzz --target "${names[@]}" PlainFuzzCorpus >"$log" 2>&1; then
		grep -v '^\[' "$log" >&2
		echo "fuzz: the fuzz build failed (above); no target was run" >&2
		exit 1
	fi
	grep -v '^\[' "$log" || true
}

# Runs one built target for $2 seconds and prints its figures.
run_target()
{
	local target=$1 seconds=$2
	local work=$build/FuzzWork/$target findings=$build/FuzzFindings/$target log=$build/FuzzLogs/$target.log
	mkdir -p "$work" "$findings" "$(dirname "$log")"
	local status=0
	# Every input's work is bounded; 10 s without an answer is a hang worth a report.
	ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1:abort_on_error=0} \
	UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1} \
	PLAIN_LOG_QUIET=1 \
	"$build/bin/Fuzz$target" "$work" "$build/FuzzCorpus/$target" \
		-max_total_time="$seconds" -timeout=10 -rss_limit_mb=4096 -print_final_stats=1 -seed="${PLAIN_FUZZ_SEED:-0}" \
		-artifact_prefix="$findings/" >"$log" 2>&1 || status=$?
	local runs
	runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)
	runs=${runs:-0}
	local elapsed
	elapsed=$(sed -n 's/^Done [0-9]* runs in \([0-9]*\) second.*/\1/p' "$log" | tail -1)
	elapsed=${elapsed:-$seconds}
	if [ "$elapsed" -lt 1 ]; then
		elapsed=1
	fi
	printf '%-20s %10s inputs/s %12s runs in %s s\n' "$target" "$((runs / elapsed))" "$runs" "$elapsed"
	if [ "$status" -ne 0 ]; then
		echo "fuzz: $target found something (exit $status); see $log and $findings/" >&2
		grep -E '^(==[0-9]+==ERROR|SUMMARY|fuzz expectation failed|.*runtime error)' "$log" | head -5 >&2 || true
		return "$status"
	fi
}

if [ $# -lt 1 ]; then
	usage
fi
case $1 in
	--list)
		targets
		exit 0
		;;
	--all)
		[ $# -eq 2 ] || usage
		seconds=$2
		mapfile -t all < <(targets)
		;;
	-*)
		usage
		;;
	*)
		[ $# -eq 2 ] || usage
		targets | grep -qx "$1" || { echo "fuzz: no target $1" >&2; usage; }
		seconds=$2
		all=("$1")
		;;
esac
case $seconds in
	'' | *[!0-9]*) echo "fuzz: SECONDS must be a whole number of seconds, not '$seconds'" >&2; exit 2 ;;
esac

build_targets "${all[@]}"
failed=0
for target in "${all[@]}"; do
	run_target "$target" "$seconds" || failed=1
done
exit "$failed"
