#include "String/Utf8Codec.h"

namespace UE::Core::Private
{
	namespace
	{
		bool IsContinuation(unsigned char Byte)
		{
			return (Byte & 0xC0) == 0x80;
		}

		// The legal range of the second byte depends on the first: this is what rules out
		// overlong forms, surrogates and code points past U+10FFFF without decoding them first.
		bool SecondByteInRange(unsigned char Lead, unsigned char Second)
		{
			switch (Lead)
			{
			case 0xE0: return Second >= 0xA0 && Second <= 0xBF;
			case 0xED: return Second >= 0x80 && Second <= 0x9F;
			case 0xF0: return Second >= 0x90 && Second <= 0xBF;
			case 0xF4: return Second >= 0x80 && Second <= 0x8F;
			default: return IsContinuation(Second);
			}
		}
	}

	template<bool bWrite>
	int32 Decode(const char* Bytes, SIZE_T Length, TCHAR* Out);

	int32 DecodeUtf8(const char* Bytes, SIZE_T Length, TCHAR* Out)
	{
		return Decode<true>(Bytes, Length, Out);
	}

	int32 CountUtf8AsTchars(const char* Bytes, SIZE_T Length)
	{
		return Decode<false>(Bytes, Length, nullptr);
	}

	template<bool bWrite>
	int32 Decode(const char* Bytes, SIZE_T Length, TCHAR* Out)
	{
		const unsigned char* In = reinterpret_cast<const unsigned char*>(Bytes);
		int32 Written = 0;
		// Counting runs the same decoder as writing, so the count is exact for any input.
		const auto Put = [&](TCHAR Unit)
		{
			if constexpr (bWrite)
			{
				*Out++ = Unit;
			}
			++Written;
		};
		SIZE_T Index = 0;
		while (Index < Length)
		{
			const unsigned char Lead = In[Index];
			if (Lead < 0x80)
			{
				Put(static_cast<TCHAR>(Lead));
				++Index;
				continue;
			}
			int32 Trail = 0;
			uint32 Code = 0;
			if (Lead >= 0xC2 && Lead <= 0xDF)
			{
				Trail = 1;
				Code = Lead & 0x1F;
			}
			else if (Lead >= 0xE0 && Lead <= 0xEF)
			{
				Trail = 2;
				Code = Lead & 0x0F;
			}
			else if (Lead >= 0xF0 && Lead <= 0xF4)
			{
				Trail = 3;
				Code = Lead & 0x07;
			}
			else
			{
				Put(ReplacementChar);
				++Index;
				continue;
			}
			SIZE_T Next = Index + 1;
			bool bValid = true;
			for (int32 Step = 0; Step < Trail; ++Step, ++Next)
			{
				const bool bInRange = Next < Length && (Step == 0 ? SecondByteInRange(Lead, In[Next]) : IsContinuation(In[Next]));
				if (!bInRange)
				{
					bValid = false;
					break;
				}
				Code = (Code << 6) | (In[Next] & 0x3F);
			}
			// On a fault, the bytes read so far form one invalid part; the faulty byte is read again
			// as the start of what follows.
			if (!bValid)
			{
				Put(ReplacementChar);
			}
			else if (Code < 0x10000)
			{
				Put(static_cast<TCHAR>(Code));
			}
			else
			{
				Code -= 0x10000;
				Put(static_cast<TCHAR>(0xD800 + (Code >> 10)));
				Put(static_cast<TCHAR>(0xDC00 + (Code & 0x3FF)));
			}
			Index = Next;
		}
		return Written;
	}

	void AppendTcharAsUtf8(std::string& Out, const TCHAR* Chars, SIZE_T Length)
	{
		Out.reserve(Out.size() + Length);
		for (SIZE_T Index = 0; Index < Length;)
		{
			const uint32 Code = ReadCodePoint(Chars, Length, Index);
			if (Code < 0x80)
			{
				Out.push_back(static_cast<char>(Code));
			}
			else if (Code < 0x800)
			{
				Out.push_back(static_cast<char>(0xC0 | (Code >> 6)));
				Out.push_back(static_cast<char>(0x80 | (Code & 0x3F)));
			}
			else if (Code < 0x10000)
			{
				Out.push_back(static_cast<char>(0xE0 | (Code >> 12)));
				Out.push_back(static_cast<char>(0x80 | ((Code >> 6) & 0x3F)));
				Out.push_back(static_cast<char>(0x80 | (Code & 0x3F)));
			}
			else
			{
				Out.push_back(static_cast<char>(0xF0 | (Code >> 18)));
				Out.push_back(static_cast<char>(0x80 | ((Code >> 12) & 0x3F)));
				Out.push_back(static_cast<char>(0x80 | ((Code >> 6) & 0x3F)));
				Out.push_back(static_cast<char>(0x80 | (Code & 0x3F)));
			}
		}
	}
}
