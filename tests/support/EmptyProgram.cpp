/// @file
/// A program that does nothing. Linked with the whole of one library, it shows that the library calls nothing above it.
int main()
{
    return 0;
}
