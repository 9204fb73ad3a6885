#include <stdio.h>

/* says hello */
int main(int argc, char **argv) {
	for (int i = 0; i < argc; ++i)
		printf("%d: %s  \"quoted\" <b>\n", i, argv[i]);
    return 0; // done & gone, é 中
}
