#!/usr/bin/env python3
"""Writes a comment document of COUNT comments spread over SECONDS of video, for trying the
overlay at density and for measuring how the program holds a large document.

Usage: tools/make-comment-document.py OUT.json COUNT [SECONDS]   (SECONDS: 600 by default)

The texts mix ASCII, CJK and emoji (characters beyond U+FFFF, two UTF-16 code units each), the
mix a real comment stream has; the same COUNT always gives the same file.
"""
import json
import random
import sys

PHRASES = [
    "666", "哈哈哈哈", "learned something today", "这里没听懂", "好耶 😂", "前方高能",
    "great explanation!", "暂停一下 📝", "𠀀 rare character", "again please 🙏", "第一", "mind blown 🤯",
    "学习 😂 𠀀", "so that is how the timer works", "字幕组辛苦了", "replay from 03:12",
]


def main():
    if len(sys.argv) not in (3, 4):
        sys.stderr.write(__doc__)
        sys.exit(2)
    out, count = sys.argv[1], int(sys.argv[2])
    seconds = int(sys.argv[3]) if len(sys.argv) == 4 else 600
    rng = random.Random(count)
    records = []
    for index in range(count):
        second = rng.randrange(max(seconds, 1))
        text = " ".join(rng.choice(PHRASES) for _ in range(rng.randint(1, 3)))
        records.append({
            "id": index + 1,
            "post_id": 7,
            "bullet_chat_author_id": rng.randrange(5000),
            "bullet_chat_author": "viewer%d" % rng.randrange(5000),
            "bullet_chat_date": "2026-11-%02d %02d:%02d:%02d" % (rng.randint(1, 28), rng.randrange(24), rng.randrange(60), rng.randrange(60)),
            "time": "%02d:%02d:%02d" % (second // 3600, second // 60 % 60, second % 60),
            "bullet_chat_content": text,
            "fabulous": rng.randrange(100),
        })
    with open(out, "w", encoding="utf-8") as stream:
        json.dump({"datas": records}, stream, ensure_ascii=False, indent=0)
        stream.write("\n")


if __name__ == "__main__":
    main()
