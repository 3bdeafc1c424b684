#include "DocComment.h"

#include <string>
#include <string_view>
#include <vector>

namespace HeaderTool
{
	namespace
	{
		std::string_view Trim(std::string_view Text)
		{
			const std::size_t First = Text.find_first_not_of(" \t");
			if (First == std::string_view::npos)
			{
				return {};
			}
			return Text.substr(First, Text.find_last_not_of(" \t") - First + 1);
		}

		bool IsBlock(const Comment& Which)
		{
			return Which.Text.compare(0, 2, "/*") == 0;
		}

		// Joins the lines with '\n', dropping the empty ones at either end, as the engine's tooltips read.
		std::string JoinLines(const std::vector<std::string_view>& Lines)
		{
			std::size_t First = 0;
			std::size_t Last = Lines.size();
			while (First < Last && Lines[First].empty())
			{
				++First;
			}
			while (Last > First && Lines[Last - 1].empty())
			{
				--Last;
			}
			std::string Out;
			for (std::size_t Index = First; Index < Last; ++Index)
			{
				Out += (Index > First ? "\n" : "") + std::string(Lines[Index]);
			}
			return Out;
		}

		std::string BlockToolTip(std::string_view Text)
		{
			Text.remove_prefix(2);
			Text.remove_suffix(2);
			std::vector<std::string_view> Lines;
			for (std::size_t Start = 0; Start <= Text.size();)
			{
				std::size_t End = Text.find('\n', Start);
				End = End == std::string_view::npos ? Text.size() : End;
				std::string_view Line = Trim(Text.substr(Start, End - Start));
				while (!Line.empty() && Line.front() == '*')
				{
					Line.remove_prefix(1);
				}
				while (!Line.empty() && Line.back() == '*')
				{
					Line.remove_suffix(1);
				}
				Lines.push_back(Trim(Line));
				Start = End + 1;
			}
			return JoinLines(Lines);
		}

		std::string LineToolTip(const std::vector<const Comment*>& Group)
		{
			std::vector<std::string_view> Lines;
			for (const Comment* Each : Group)
			{
				std::string_view Line(Each->Text);
				while (!Line.empty() && Line.front() == '/')
				{
					Line.remove_prefix(1);
				}
				Lines.push_back(Trim(Line.substr(0, Line.size() - 1)));
			}
			return JoinLines(Lines);
		}
	}

	void AttachDocComment(const TokenizedFile& File, std::size_t MacroToken, MetaData& Meta)
	{
		const int MacroLine = File.Tokens[MacroToken].Line;
		std::vector<const Comment*> Before;
		for (const Comment& Each : File.Comments)
		{
			if (Each.NextToken == MacroToken && !Each.bTrailing)
			{
				Before.push_back(&Each);
			}
		}
		if (Before.empty() || Before.back()->LastLine < MacroLine - 1)
		{
			return;
		}
		std::string Raw;
		std::string ToolTip;
		if (IsBlock(*Before.back()))
		{
			Raw = Before.back()->Text;
			ToolTip = BlockToolTip(Raw);
		}
		else
		{
			std::vector<const Comment*> Group{Before.back()};
			for (std::size_t Index = Before.size() - 1; Index > 0; --Index)
			{
				const Comment* Previous = Before[Index - 1];
				if (IsBlock(*Previous) || Previous->LastLine != Group.front()->FirstLine - 1)
				{
					break;
				}
				Group.insert(Group.begin(), Previous);
			}
			for (const Comment* Each : Group)
			{
				Raw += Each->Text;
			}
			ToolTip = LineToolTip(Group);
		}
		Meta.Set("Comment", Raw);
		if (!ToolTip.empty() && !Meta.Find("ToolTip"))
		{
			Meta.Set("ToolTip", ToolTip);
		}
	}
}
