// vidaria-player: the lesson player program (being assembled).

int main()
{
	return 0;
}
