#!/usr/bin/env bash
# The main command: installs what is missing, builds the lesson player program (optimised) and
# plays the bundled sample lesson with its comments. With a display it opens a window (sound on
# the speakers); without one it runs headless. Either way it records the run and takes
# screenshots into out/, and says where they are. Arguments replace the defaults, e.g.
#   bash scripts/play.sh my-lesson.mp4 --comments my-comments.json
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/install-deps.sh
cmake --preset player >/dev/null
cmake --build --preset player

if [ $# -eq 0 ]; then
  mkdir -p out
  set -- --record out/lesson.mp4 --screenshots out/screenshots --every 2
fi
exec build/player/bin/vidaria-player "$@"
