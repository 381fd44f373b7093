; An else arm that returns has no if.end behind it, so its brace stays open: the store of 3 ends up inside the outer if.
@a = global i32 0
define i32 @main() {
entry:
  %retval = alloca i32
  %0 = load i32, i32* @a
  %cmp = icmp ne i32 %0, 0
  br i1 %cmp, label %if.then, label %if.end
if.then:
  %1 = load i32, i32* @a
  %cmp1 = icmp sgt i32 %1, 5
  br i1 %cmp1, label %if.then1, label %if.else
if.then1:
  store i32 1, i32* %retval
  br label %return
if.else:
  store i32 2, i32* %retval
  br label %return
if.end:
  store i32 3, i32* %retval
  br label %return
return:
  %2 = load i32, i32* %retval
  ret i32 %2
}
