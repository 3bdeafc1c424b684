#!/usr/bin/env bash
# Writes a bullet-chat comment document of COUNT comments spread evenly over the first SECONDS of a
# lesson, for trying the player (and measuring it) at a chosen density. Texts run from a few
# characters to a long line, some in Chinese, so widths and fonts vary as real comments do.
#
# Usage: tools/make-comment-document.sh COUNT SECONDS > comments.json
set -euo pipefail

if [ $# -ne 2 ]; then
	echo "usage: $0 COUNT SECONDS > comments.json" >&2
	exit 2
fi
case "$1$2" in
	*[!0-9]*) echo "$0: COUNT and SECONDS must be whole numbers" >&2; exit 2 ;;
esac

awk -v count="$1" -v seconds="$2" 'BEGIN {
	split("great lesson|你好|thanks a lot|学习了|wow|so clear now|+1|第一次看懂|this part again please|nice", words, "|")
	printf "{\n \"datas\": [\n"
	for (i = 0; i < count; i++) {
		at = seconds > 0 ? int(i * seconds / count) : 0
		text = "#" (i + 1)
		for (w = 0; w <= i % 6; w++) {
			text = text " " words[(i + w * 3) % 10 + 1]
		}
		printf "  {\"id\": %d, \"post_id\": 1, \"bullet_chat_author_id\": %d, \"bullet_chat_author\": \"Viewer%d\", ", i + 1, 100 + i % 500, i % 500
		printf "\"bullet_chat_date\": \"2026.11.23-10.00.00\", \"time\": \"%02d:%02d:%02d\", ", int(at / 3600), int(at / 60) % 60, at % 60
		printf "\"bullet_chat_content\": \"%s\", \"fabulous\": %d}%s\n", text, i % 7, i + 1 < count ? "," : ""
	}
	printf " ]\n}\n"
}'
