; ModuleID = 'uart.cpp'
source_filename = "uart.cpp"
target datalayout = "e-m:e-p:16:16-i32:16-i64:16-f32:16-f64:16-a:8-n8:16-S16"
target triple = "msp430"

declare { %class.Ring*, %class.Ring.0*, %struct.Registers* } @llvm.dbg.order()
%class.Uart = type { %struct.Registers*, %class.Ring, %class.Ring.0, i16 }
%struct.Registers = type { i8, i8 }
%class.Ring = type { [16 x i8], i8, i8, i16 }
%class.Ring.0 = type { [32 x i8], i8, i8, i16 }

$_ZN4UartlsEPKc = comdat any

$_ZN4UartlsEi = comdat any

$_ZN4RingIhLi32EE3putERKh = comdat any

$_ZNK4RingIhLi32EE4fullEv = comdat any

$_ZN4RingIhLi32EE4nextEh = comdat any

@console = global %class.Uart zeroinitializer, align 2
@.str = private unnamed_addr constant [7 x i8] c"hello \00", align 1
@.str.1 = private unnamed_addr constant [9 x i8] c", visit \00", align 1
@.str.2 = private unnamed_addr constant [2 x i8] c"\0A\00", align 1

; Function Attrs: mustprogress noinline nounwind optnone
define void @greet(i8* %name, i16 %visits) #0 {
entry:
  %name.addr = alloca i8*, align 2
  %visits.addr = alloca i16, align 2
  store i8* %name, i8** %name.addr, align 2
  store i16 %visits, i16* %visits.addr, align 2
  %call = call nonnull align 2 dereferenceable(60) %class.Uart* @_ZN4UartlsEPKc(%class.Uart* nonnull align 2 dereferenceable(60) @console, i8* getelementptr inbounds ([7 x i8], [7 x i8]* @.str, i16 0, i16 0))
  %0 = load i8*, i8** %name.addr, align 2
  %call1 = call nonnull align 2 dereferenceable(60) %class.Uart* @_ZN4UartlsEPKc(%class.Uart* nonnull align 2 dereferenceable(60) %call, i8* %0)
  %call2 = call nonnull align 2 dereferenceable(60) %class.Uart* @_ZN4UartlsEPKc(%class.Uart* nonnull align 2 dereferenceable(60) %call1, i8* getelementptr inbounds ([9 x i8], [9 x i8]* @.str.1, i16 0, i16 0))
  %1 = load i16, i16* %visits.addr, align 2
  %call3 = call nonnull align 2 dereferenceable(60) %class.Uart* @_ZN4UartlsEi(%class.Uart* nonnull align 2 dereferenceable(60) %call2, i16 %1)
  %call4 = call nonnull align 2 dereferenceable(60) %class.Uart* @_ZN4UartlsEPKc(%class.Uart* nonnull align 2 dereferenceable(60) %call3, i8* getelementptr inbounds ([2 x i8], [2 x i8]* @.str.2, i16 0, i16 0))
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr nonnull align 2 dereferenceable(60) %class.Uart* @_ZN4UartlsEPKc(%class.Uart* nonnull align 2 dereferenceable(60) %this, i8* %text) #0 comdat align 2 {
entry:
  %this.addr = alloca %class.Uart*, align 2
  %text.addr = alloca i8*, align 2
  %ref.tmp = alloca i8, align 1
  store %class.Uart* %this, %class.Uart** %this.addr, align 2
  store i8* %text, i8** %text.addr, align 2
  %this1 = load %class.Uart*, %class.Uart** %this.addr, align 2
  br label %while.cond

while.cond:
  %0 = load i8*, i8** %text.addr, align 2
  %1 = load i8, i8* %0, align 1
  %tobool = icmp ne i8 %1, 0
  br i1 %tobool, label %while.body, label %while.end

while.body:
  %waiting = getelementptr inbounds %class.Uart, %class.Uart* %this1, i32 0, i32 2
  %2 = load i8*, i8** %text.addr, align 2
  %incdec.ptr = getelementptr inbounds i8, i8* %2, i32 1
  store i8* %incdec.ptr, i8** %text.addr, align 2
  %3 = load i8, i8* %2, align 1
  store i8 %3, i8* %ref.tmp, align 1
  %call = call zeroext i1 @_ZN4RingIhLi32EE3putERKh(%class.Ring.0* nonnull align 2 dereferenceable(36) %waiting, i8* nonnull align 1 dereferenceable(1) %ref.tmp)
  br label %while.cond

while.end:
  ret %class.Uart* %this1
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr nonnull align 2 dereferenceable(60) %class.Uart* @_ZN4UartlsEi(%class.Uart* nonnull align 2 dereferenceable(60) %this, i16 %value) #0 comdat align 2 {
entry:
  %this.addr = alloca %class.Uart*, align 2
  %value.addr = alloca i16, align 2
  %ref.tmp = alloca i8, align 1
  %ref.tmp7 = alloca i8, align 1
  store %class.Uart* %this, %class.Uart** %this.addr, align 2
  store i16 %value, i16* %value.addr, align 2
  %this1 = load %class.Uart*, %class.Uart** %this.addr, align 2
  %0 = load i16, i16* %value.addr, align 2
  %cmp = icmp slt i16 %0, 0
  br i1 %cmp, label %if.then, label %if.end

if.then:
  %waiting = getelementptr inbounds %class.Uart, %class.Uart* %this1, i32 0, i32 2
  store i8 45, i8* %ref.tmp, align 1
  %call = call zeroext i1 @_ZN4RingIhLi32EE3putERKh(%class.Ring.0* nonnull align 2 dereferenceable(36) %waiting, i8* nonnull align 1 dereferenceable(1) %ref.tmp)
  %1 = load i16, i16* %value.addr, align 2
  %sub = sub nsw i16 0, %1
  store i16 %sub, i16* %value.addr, align 2
  br label %if.end

if.end:
  %2 = load i16, i16* %value.addr, align 2
  %cmp2 = icmp sge i16 %2, 10
  br i1 %cmp2, label %if.then3, label %if.end5

if.then3:
  %3 = load i16, i16* %value.addr, align 2
  %div = sdiv i16 %3, 10
  %call4 = call nonnull align 2 dereferenceable(60) %class.Uart* @_ZN4UartlsEi(%class.Uart* nonnull align 2 dereferenceable(60) %this1, i16 %div)
  br label %if.end5

if.end5:
  %waiting6 = getelementptr inbounds %class.Uart, %class.Uart* %this1, i32 0, i32 2
  %4 = load i16, i16* %value.addr, align 2
  %rem = srem i16 %4, 10
  %add = add nsw i16 48, %rem
  %conv = trunc i16 %add to i8
  store i8 %conv, i8* %ref.tmp7, align 1
  %call8 = call zeroext i1 @_ZN4RingIhLi32EE3putERKh(%class.Ring.0* nonnull align 2 dereferenceable(36) %waiting6, i8* nonnull align 1 dereferenceable(1) %ref.tmp7)
  ret %class.Uart* %this1
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr zeroext i1 @_ZN4RingIhLi32EE3putERKh(%class.Ring.0* nonnull align 2 dereferenceable(36) %this, i8* nonnull align 1 dereferenceable(1) %value) #0 comdat align 2 {
entry:
  %retval = alloca i1, align 1
  %this.addr = alloca %class.Ring.0*, align 2
  %value.addr = alloca i8*, align 2
  store %class.Ring.0* %this, %class.Ring.0** %this.addr, align 2
  store i8* %value, i8** %value.addr, align 2
  %this1 = load %class.Ring.0*, %class.Ring.0** %this.addr, align 2
  %call = call zeroext i1 @_ZNK4RingIhLi32EE4fullEv(%class.Ring.0* nonnull align 2 dereferenceable(36) %this1)
  br i1 %call, label %if.then, label %if.end

if.then:
  %lost = getelementptr inbounds %class.Ring.0, %class.Ring.0* %this1, i32 0, i32 3
  %0 = load i16, i16* %lost, align 2
  %inc = add nsw i16 %0, 1
  store i16 %inc, i16* %lost, align 2
  store i1 false, i1* %retval, align 1
  br label %return

if.end:
  %1 = load i8*, i8** %value.addr, align 2
  %2 = load i8, i8* %1, align 1
  %slots = getelementptr inbounds %class.Ring.0, %class.Ring.0* %this1, i32 0, i32 0
  %head = getelementptr inbounds %class.Ring.0, %class.Ring.0* %this1, i32 0, i32 1
  %3 = load i8, i8* %head, align 2
  %idxprom = zext i8 %3 to i16
  %arrayidx = getelementptr inbounds [32 x i8], [32 x i8]* %slots, i16 0, i16 %idxprom
  store i8 %2, i8* %arrayidx, align 1
  %head2 = getelementptr inbounds %class.Ring.0, %class.Ring.0* %this1, i32 0, i32 1
  %4 = load i8, i8* %head2, align 2
  %call3 = call zeroext i8 @_ZN4RingIhLi32EE4nextEh(i8 zeroext %4)
  %head4 = getelementptr inbounds %class.Ring.0, %class.Ring.0* %this1, i32 0, i32 1
  store i8 %call3, i8* %head4, align 2
  store i1 true, i1* %retval, align 1
  br label %return

return:
  %5 = load i1, i1* %retval, align 1
  ret i1 %5
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr zeroext i1 @_ZNK4RingIhLi32EE4fullEv(%class.Ring.0* nonnull align 2 dereferenceable(36) %this) #0 comdat align 2 {
entry:
  %this.addr = alloca %class.Ring.0*, align 2
  store %class.Ring.0* %this, %class.Ring.0** %this.addr, align 2
  %this1 = load %class.Ring.0*, %class.Ring.0** %this.addr, align 2
  %head = getelementptr inbounds %class.Ring.0, %class.Ring.0* %this1, i32 0, i32 1
  %0 = load i8, i8* %head, align 2
  %call = call zeroext i8 @_ZN4RingIhLi32EE4nextEh(i8 zeroext %0)
  %conv = zext i8 %call to i16
  %tail = getelementptr inbounds %class.Ring.0, %class.Ring.0* %this1, i32 0, i32 2
  %1 = load i8, i8* %tail, align 1
  %conv2 = zext i8 %1 to i16
  %cmp = icmp eq i16 %conv, %conv2
  ret i1 %cmp
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr zeroext i8 @_ZN4RingIhLi32EE4nextEh(i8 zeroext %at) #0 comdat align 2 {
entry:
  %at.addr = alloca i8, align 1
  store i8 %at, i8* %at.addr, align 1
  %0 = load i8, i8* %at.addr, align 1
  %conv = zext i8 %0 to i16
  %add = add nsw i16 %conv, 1
  %cmp = icmp slt i16 %add, 32
  br i1 %cmp, label %cond.true, label %cond.false

cond.true:
  %1 = load i8, i8* %at.addr, align 1
  %conv1 = zext i8 %1 to i16
  %add2 = add nsw i16 %conv1, 1
  br label %cond.end

cond.false:
  br label %cond.end

cond.end:
  %cond = phi i16 [ %add2, %cond.true ], [ 0, %cond.false ]
  %conv3 = trunc i16 %cond to i8
  ret i8 %conv3
}

attributes #0 = { mustprogress noinline nounwind optnone "frame-pointer"="none" "min-legal-vector-width"="0" "no-trapping-math"="true" "stack-protector-buffer-size"="8" }

!llvm.module.flags = !{!0, !1, !2}
!llvm.ident = !{!3}

!0 = !{i32 1, !"SemanticInterposition", i32 1}
!1 = !{i32 1, !"wchar_size", i32 2}
!2 = !{i32 7, !"PIC Level", i32 2}
!3 = !{!"Debian clang version 14.0.6"}
!4 = distinct !{!4, !5}
!5 = !{!"llvm.loop.mustprogress"}
