#!/usr/bin/env bash
# Checks one build rule of the plug-in's modules.
#   builds BUILD_DIR TARGET            the module builds
#   fails  BUILD_DIR TARGET REASON     the module fails to build, and the compiler or linker says REASON
#   links  LIBRARY BUILD_CS [...]      each library needs no module of ours that its Build.cs leaves out
set -uo pipefail

modules_named_in() {
	grep -o '"[A-Za-z0-9_]*"' "$1" | tr -d '"'
}

case "$1" in
builds)
	if ! output=$(cmake --build "$2" --target "$3" 2>&1); then
		echo "$3 should build, but:"; echo "$output"; exit 1
	fi
	echo "$3 builds"
	;;
fails)
	if output=$(cmake --build "$2" --target "$3" 2>&1); then
		echo "$3 should fail to build, but it built"; exit 1
	fi
	if ! grep -qF -- "$4" <<<"$output"; then
		echo "$3 failed, but not because of \"$4\":"; echo "$output"; exit 1
	fi
	echo "$3 fails to build: $(grep -m1 -F -- "$4" <<<"$output")"
	;;
links)
	shift
	status=0
	while [ $# -ge 2 ]; do
		library=$1 build_cs=$2
		shift 2
		named=$(modules_named_in "$build_cs")
		our_modules=$(ls "$(dirname "$library")" | sed -n 's/^lib\(.*\)\.so$/\1/p')
		for needed in $(readelf -d "$library" | sed -n 's/.*Shared library: \[lib\(.*\)\.so\]$/\1/p'); do
			if grep -qx "$needed" <<<"$our_modules" && ! grep -qx "$needed" <<<"$named"; then
				echo "$(basename "$library") links $needed, which $(basename "$build_cs") does not name"
				status=1
			fi
		done
		echo "$(basename "$library") links: $(readelf -d "$library" | sed -n 's/.*Shared library: \[\(.*\)\]$/\1/p' | tr '\n' ' ')"
	done
	exit $status
	;;
*)
	echo "usage: $0 builds|fails|links ..."; exit 2
	;;
esac
