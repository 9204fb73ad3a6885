import Foundation

struct Point {
    var x: Int
    let y = 2.5
    // adds
    mutating func move(by dx: Int) -> Int {
        guard dx > 0 else { return x }
        x += dx
        print("moved \(dx)")
        return x
    }
}
