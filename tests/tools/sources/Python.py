import sys

class Greeter:
    """Says hello."""
    def __init__(self, name):
        self.name = name  # kept

    def greet(self):
        print("Hello", self.name, 42)

if __name__ == "__main__":
    Greeter(sys.argv[1]).greet()
