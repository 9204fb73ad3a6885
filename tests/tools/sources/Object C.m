#import <Foundation/Foundation.h>
@interface Greeter : NSObject
@property (nonatomic) NSString *name;
@end
@implementation Greeter
- (void)greet {
    NSLog(@"Hello %@", self.name); // twice
    int count = 2;
}
@end
