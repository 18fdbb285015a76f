// A program that does nothing: what it takes to start and end one.

int main() {
    return 0;
}
