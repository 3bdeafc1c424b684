#pragma once

#include <string>

/** libavutil's message for an AVERROR code, e.g. "No such file or directory". */
std::string FFmpegErrorText(int ErrorCode);
