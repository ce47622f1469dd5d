#import <Carbon/Carbon.h>
#import <InputMethodKit/InputMethodKit.h>

@interface StartUpTestHelp : NSObject
@end

/// While the environment variable VANOKA_TEST_CLOSE is set, closes the settings window when it is shown, as a
/// user does who has seen enough, and says what it was, and whether it was there before the program had been
/// launched.
@implementation StartUpTestHelp
+ (void)load {
    if (!getenv("VANOKA_TEST_CLOSE"))
        return;
    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
    [[NSNotificationCenter defaultCenter] addObserver:self
                                             selector:@selector(launched:)
                                                 name:NSApplicationDidFinishLaunchingNotification
                                               object:nil];
    [pool drain];
}
+ (NSWindow*)settingsWindow {
    for (NSWindow* window in [NSApp windows])
        if ([[window title] isEqualToString:@"Vanoka Settings"] && [window isVisible])
            return window;
    return nil;
}
+ (void)launched:(NSNotification*)notification {
    (void)notification;
    if ([self settingsWindow])
        printf("shown too early\n");
    [self performSelector:@selector(close) withObject:nil afterDelay:0];
}
+ (void)close {
    NSWindow* window = [self settingsWindow];
    printf("closing %s, policy %d\n", [[window title] UTF8String], (int)[NSApp activationPolicy]);
    fflush(stdout);
    [window close];
}
@end

#include <cstdio>
#include <cstdlib>

OSStatus TISRegisterInputSource(CFURLRef location) {
    if (![(NSURL*)location isFileURL])
        return -50;
    const char* status = std::getenv("VANOKA_TEST_REGISTRATION_STATUS");
    return status ? std::atoi(status) : 0;
}

@implementation IMKInputController

- (id)init {
    return [self initWithServer:nil delegate:nil client:nil];
}

- (id)initWithServer:(IMKServer*)server delegate:(id)delegate client:(id)inputClient {
    (void)delegate;
    if ((self = [super init])) {
        _server = server;
        _client = inputClient;
        _baseCalls = [[NSMutableArray alloc] init];
    }
    return self;
}

- (void)dealloc {
    [_baseCalls release];
    [super dealloc];
}

- (id<IMKTextInput, NSObject>)client {
    return _client;
}
- (IMKServer*)server {
    return _server;
}
- (NSMenu*)menu {
    return nil;
}
- (NSArray*)baseCalls {
    return _baseCalls;
}

/// The way of a menu item's action to the controller: its argument is a dictionary.
- (void)doCommandBySelector:(SEL)selector commandDictionary:(NSDictionary*)infoDictionary {
    if ([self respondsToSelector:selector])
        [self performSelector:selector withObject:infoDictionary];
}

- (void)activateServer:(id)sender {
    (void)sender;
    [_baseCalls addObject:@"activate"];
}
- (void)deactivateServer:(id)sender {
    (void)sender;
    [_baseCalls addObject:@"deactivate"];
}
- (id)valueForTag:(long)tag client:(id)sender {
    (void)tag;
    (void)sender;
    return nil;
}
- (void)setValue:(id)value forTag:(long)tag client:(id)sender {
    (void)value;
    (void)tag;
    (void)sender;
}
- (NSDictionary*)modes:(id)sender {
    (void)sender;
    return nil;
}
- (NSUInteger)recognizedEvents:(id)sender {
    (void)sender;
    return NSEventMaskKeyDown;
}
- (void)showPreferences:(id)sender {
    (void)sender;
}

@end

@implementation IMKServer

- (id)initWithName:(NSString*)name bundleIdentifier:(NSString*)bundleIdentifier {
    if (std::getenv("VANOKA_TEST_NO_SERVER")) {
        [self release];
        return nil;
    }
    if ((self = [super init])) {
        // The one thing that a test outside of the process can see of a server.
        std::printf("serving %s for %s\n", [name UTF8String], [bundleIdentifier UTF8String]);
        std::fflush(stdout);
    }
    return self;
}

- (NSBundle*)bundle {
    return [NSBundle mainBundle];
}

@end
