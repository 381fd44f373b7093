; The store of a local's address moves to the next use of that local, behind what the pointer is used for until then.
; If that use is a member, it comes out as p = &s->f1, which isn't C.
@other = global i32 1
@p = global i32* @other
define i32 @main() {
entry:
  %x = alloca i32
  store i32 3, i32* %x
  store i32* %x, i32** @p
  %0 = load i32*, i32** @p
  store i32 5, i32* %0
  %1 = load i32, i32* %x
  ret i32 %1
}
