; A char is unsigned and never equals a constant below zero.
@c = global i8 -1
define i32 @main() {
entry:
  %0 = load i8, i8* @c
  %cmp = icmp eq i8 %0, -1
  %conv = zext i1 %cmp to i32
  ret i32 %conv
}
