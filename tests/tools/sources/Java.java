package demo;
import java.util.List;

public class Main {
    /** Entry point. */
    public static void main(String[] args) {
        List<String> names = List.of("a", "b");
        System.out.println(names.size() + 1); // two & one
    }
}
