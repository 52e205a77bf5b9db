// The peers of Host.cpp: a program that does nothing.
int main()
{
}
