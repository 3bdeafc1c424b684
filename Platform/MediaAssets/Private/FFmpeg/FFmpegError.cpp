#include "FFmpegError.h"

extern "C"
{
#include <libavutil/error.h>
}

std::string FFmpegErrorText(int ErrorCode)
{
	char Buffer[AV_ERROR_MAX_STRING_SIZE] = {};
	if (av_strerror(ErrorCode, Buffer, sizeof(Buffer)) < 0)
	{
		return "error " + std::to_string(ErrorCode);
	}
	return Buffer;
}
