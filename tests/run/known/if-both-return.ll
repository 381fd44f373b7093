; An else arm that returns has no if.end behind it, so its brace stays open: the store of 3 ends up inside the outer if.
@a = global i32 0
define i32 @main() {
entry:
  %retval = alloca i32
  store i32 1, i32* %retval
  %0 = load i32, i32* @a
  %cmp = icmp ne i32 %0, 0
  br i1 %cmp, label %if.then, label %if.end
if.then:
  br i1 %cmp, label %if.then1, label %if.else
if.then1:
  br label %return
if.else:
  br label %return
if.end:
  store i32 3, i32* %retval
  br label %return
return:
  %1 = load i32, i32* %retval
  ret i32 %1
}
