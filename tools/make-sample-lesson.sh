#!/usr/bin/env bash
# Makes a short lesson clip to try the player with: 1280x720 (or SIZE) at 30 fps, a picture that shows its
# own time, and a 440 Hz tone with a higher beep at every whole second, so that picture and
# sound can be checked against each other by eye and ear. H.264 (libx264, else MPEG-4 part 2)
# and AAC in MP4, with the index up front so it also plays well over http.
#
# Usage: tools/make-sample-lesson.sh OUT.mp4 [SECONDS [WIDTHxHEIGHT]]   (12 s, 1280x720 by default)
# The build runs it to make build/<preset>/SampleMedia/lesson.mp4 (4 s, 320x180) for the tests.
# Does nothing when OUT exists and is newer than this script.
set -euo pipefail

usage()
{
	echo "usage: $0 OUT.mp4 [SECONDS [WIDTHxHEIGHT]]" >&2
	exit 2
}

if [ $# -lt 1 ] || [ $# -gt 3 ]; then
	usage
fi
out=$1
length=${2:-12}
size=${3:-1280x720}
case $size in
	[1-9]*x[1-9]*) ;;
	*) echo "$0: SIZE must read WIDTHxHEIGHT, not '$size'" >&2; exit 2 ;;
esac
width=${size%x*}
height=${size#*x}
# Text scales with the picture so a small test clip still shows its clock.
big=$((height / 6))
small=$((height / 15))
case $length in
	'' | *[!0-9.]* | *.*.* | .) echo "$0: SECONDS must be a positive number, not '$length'" >&2; exit 2 ;;
esac

if [ -f "$out" ] && [ "$out" -nt "$0" ]; then
	echo "$out is up to date"
	exit 0
fi
if ! command -v ffmpeg >/dev/null 2>&1; then
	echo "$0: the ffmpeg program is missing (apt-get install ffmpeg)" >&2
	exit 1
fi

# Lists are read whole first: grep -q stopping early would fail the pipeline under pipefail.
encoders=$(ffmpeg -hide_banner -encoders 2>/dev/null || true)
filters=$(ffmpeg -hide_banner -filters 2>/dev/null || true)
if grep -q ' libx264 ' <<<"$encoders"; then
	video_codec="-c:v libx264 -preset veryfast -crf 23 -pix_fmt yuv420p"
else
	video_codec="-c:v mpeg4 -q:v 4"
fi

# drawtext needs a font file; without one, testsrc draws its own running counter.
font=""
for candidate in /usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf /usr/share/fonts/truetype/dejavu/DejaVuSans.ttf; do
	if [ -f "$candidate" ]; then
		font=$candidate
		break
	fi
done
if [ -n "$font" ] && grep -q ' drawtext ' <<<"$filters"; then
	picture="color=c=0x1d3557:s=${width}x${height}:r=30,drawtext=fontfile=$font:fontcolor=white:fontsize=$big:x=(w-tw)/2:y=(h-th)/2-h/12:text='%{pts\\:hms}',drawtext=fontfile=$font:fontcolor=0xa8dadc:fontsize=$small:x=(w-tw)/2:y=(h/2)+h/12:text='frame %{frame_num}'"
else
	picture="testsrc=s=${width}x${height}:r=30"
fi

# Write beside the target and rename, so an interrupted run never leaves a clip that looks done.
tmp="$out.part.mp4"
trap 'rm -f "$tmp"' EXIT
# shellcheck disable=SC2086 # video_codec is a list of options
ffmpeg -hide_banner -loglevel error -y \
	-f lavfi -i "$picture" \
	-f lavfi -i "sine=frequency=440:beep_factor=2:sample_rate=48000" \
	-t "$length" $video_codec -g 60 \
	-c:a aac -b:a 128k -ac 2 \
	-movflags +faststart \
	"$tmp"
mv -f "$tmp" "$out"
trap - EXIT
echo "made $out ($length s, ${width}x${height})"
