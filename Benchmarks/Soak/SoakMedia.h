#pragma once

// The soak runs' material, made on first use into the build folder: lessons with a tiny picture
// (decoding is not what a soak measures) and a comment document of the overlay's format.

#include <string>

namespace SoakMedia
{
	/**
	 * A lesson of Seconds with a 64x36 picture at 5 frames a second and a quiet mono sound, at
	 * Path; kept when it is already there. False when the ffmpeg program cannot make it.
	 */
	bool MakeLesson(const std::string& Path, int Seconds);

	/**
	 * Count comments spread evenly over Seconds of lesson, at Path (rewritten every time). With a
	 * Period, they fall only in the first ActiveSeconds of every Period seconds, so a run can look
	 * at the program in the quiet stretches, when no comment is in flight.
	 */
	bool MakeComments(const std::string& Path, int Count, int Seconds, int Period = 0, int ActiveSeconds = 0);
}
