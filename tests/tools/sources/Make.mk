# builds the program
CFLAGS = -O2 -Wall
all: main.o
	$(CC) $(CFLAGS) -o main main.o
clean:
	rm -f main
.PHONY: all clean
