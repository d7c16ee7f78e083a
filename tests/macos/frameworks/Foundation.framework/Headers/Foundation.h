// The part of Foundation that this program uses, with the names and signatures of Apple's documentation, to check that
// the sources for macOS compile and link. Never part of the program.
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <objc/NSObject.h>
#include <stdbool.h>

#ifdef __cplusplus
#define FOUNDATION_EXPORT extern "C"
#else
#define FOUNDATION_EXPORT extern
#endif
#define API_SINCE(version) __attribute__((availability(macos, introduced = version)))
#undef NS_ENUM
#undef NS_OPTIONS
#define NS_ENUM(type, name) \
    enum name : type name; \
    enum name : type
#define NS_OPTIONS(type, name) \
    type name; \
    enum : type

#pragma clang assume_nonnull begin

typedef unsigned short unichar;
typedef NSString *NSErrorDomain;
typedef NSString *NSErrorUserInfoKey;
typedef NSString *NSURLResourceKey;

FOUNDATION_EXPORT NSErrorDomain const NSPOSIXErrorDomain;
FOUNDATION_EXPORT NSErrorUserInfoKey const NSUnderlyingErrorKey;
FOUNDATION_EXPORT NSURLResourceKey const NSURLVolumeTotalCapacityKey;
FOUNDATION_EXPORT NSURLResourceKey const NSURLVolumeAvailableCapacityForImportantUsageKey API_SINCE(10.13);

@interface NSString : NSObject
- (unichar)characterAtIndex:(NSUInteger)index;
- (BOOL)isEqualToString:(NSString *)aString;
@end

@interface NSNumber : NSObject
@property(readonly) BOOL boolValue;
@property(readonly) long long longLongValue;
@end

@interface NSArray<__covariant ObjectType> : NSObject
+ (instancetype)arrayWithObjects:(const ObjectType _Nonnull[_Nullable])objects count:(NSUInteger)count;
@end

@interface NSDictionary<__covariant KeyType, __covariant ObjectType> : NSObject
- (nullable ObjectType)objectForKeyedSubscript:(KeyType)key;
@end

@interface NSError : NSObject
@property(readonly, copy) NSErrorDomain domain;
@property(readonly) NSInteger code;
@property(readonly, copy) NSDictionary<NSErrorUserInfoKey, id> *userInfo;
@property(readonly, copy) NSString *localizedDescription;
@end

@interface NSURL : NSObject
@property(readonly, nullable) const char *fileSystemRepresentation;
+ (NSURL *)fileURLWithFileSystemRepresentation:(const char *)path
                                   isDirectory:(BOOL)isDir
                                 relativeToURL:(nullable NSURL *)baseURL;
- (nullable NSDictionary<NSURLResourceKey, id> *)resourceValuesForKeys:(NSArray<NSURLResourceKey> *)keys
                                                                 error:(NSError *_Nullable *_Nullable)error;
@end

@interface NSUserDefaults : NSObject
@property(class, readonly, strong) NSUserDefaults *standardUserDefaults;
- (nullable id)objectForKey:(NSString *)defaultName;
- (void)setObject:(nullable id)value forKey:(NSString *)defaultName;
- (void)setBool:(BOOL)value forKey:(NSString *)defaultName;
- (void)removeObjectForKey:(NSString *)defaultName;
- (BOOL)synchronize;
@end

typedef NSUInteger NSSearchPathDomainMask;
typedef NS_ENUM(NSUInteger, NSSearchPathDirectory) { NSTrashDirectory = 102 };
typedef NS_ENUM(NSInteger, NSURLRelationship) {
    NSURLRelationshipContains,
    NSURLRelationshipSame,
    NSURLRelationshipOther
};

@interface NSFileManager : NSObject
@property(class, readonly, strong) NSFileManager *defaultManager;
- (BOOL)getRelationship:(NSURLRelationship *)outRelationship
            ofDirectory:(NSSearchPathDirectory)directory
               inDomain:(NSSearchPathDomainMask)domainMask
            toItemAtURL:(NSURL *)url
                  error:(NSError *_Nullable *_Nullable)error;
- (BOOL)trashItemAtURL:(NSURL *)url
      resultingItemURL:(NSURL *_Nullable *_Nullable)outResultingURL
                 error:(NSError *_Nullable *_Nullable)error;
@end

typedef NSString *NSNotificationName;

@interface NSNotification : NSObject
@end

@class NSOperationQueue;

@interface NSNotificationCenter : NSObject
- (id)addObserverForName:(nullable NSNotificationName)name
                  object:(nullable id)obj
                   queue:(nullable NSOperationQueue *)queue
              usingBlock:(void (^)(NSNotification *notification))block;
- (void)removeObserver:(id)observer;
@end

#pragma clang assume_nonnull end
