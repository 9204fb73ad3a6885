using System;
namespace Demo {
    public class Greeter {
        // prints a name
        public string Name { get; set; } = "World";
        public static void Main(string[] args) {
            Console.WriteLine($"Hello {args.Length}");
        }
    }
}
