source_filename = "traffic.cpp"
%struct.traffic__Phase = type { i8, i16, i16 (%struct.traffic__Crossing*)* }
%struct.traffic__Crossing = type { i16, i16, i8, i8, i16 }
@_ZN7trafficL6phasesE = internal constant [6 x %struct.traffic__Phase] [%struct.traffic__Phase { i8 9, i16 2, i16 (%struct.traffic__Crossing*)* @_ZN7trafficL9after_redERKNS_8CrossingE }, %struct.traffic__Phase { i8 33, i16 30, i16 (%struct.traffic__Crossing*)* @_ZN7trafficL11after_northERKNS_8CrossingE }, %struct.traffic__Phase { i8 17, i16 4, i16 (%struct.traffic__Crossing*)* @_ZN7trafficL18after_north_yellowERKNS_8CrossingE }, %struct.traffic__Phase { i8 12, i16 20, i16 (%struct.traffic__Crossing*)* @_ZN7trafficL10after_eastERKNS_8CrossingE }, %struct.traffic__Phase { i8 10, i16 4, i16 (%struct.traffic__Crossing*)* @_ZN7trafficL6to_redERKNS_8CrossingE }, %struct.traffic__Phase { i8 73, i16 12, i16 (%struct.traffic__Crossing*)* @_ZN7trafficL6to_redERKNS_8CrossingE }]
@_ZL8crossing = internal global %struct.traffic__Crossing { i16 0, i16 1, i8 0, i8 0, i16 0 }
declare void @llvm.dbg.declare(metadata, metadata, metadata)
define void @_ZN7traffic6handleERNS_8CrossingENS_5EventE(%struct.traffic__Crossing* %crossing, i16 %event) {
entry:
  %crossing.addr = alloca %struct.traffic__Crossing*
  %event.addr = alloca i16
  %0 = load i16, i16* %event.addr
  switch i16 %0, label %sw.default0 [
    i16 0, label %sw.bb1
    i16 1, label %sw.bb2
    i16 2, label %sw.bb3
  ]

sw.bb1:
  %1 = load %struct.traffic__Crossing*, %struct.traffic__Crossing** %crossing.addr
  call void @_ZN7trafficL4stepERNS_8CrossingE(%struct.traffic__Crossing* %1)
  br label %sw.epilog0

sw.bb2:
  %2 = load %struct.traffic__Crossing*, %struct.traffic__Crossing** %crossing.addr
  %3 = getelementptr inbounds %struct.traffic__Crossing, %struct.traffic__Crossing* %2, i32 0, i32 0
  %4 = load i16, i16* %3
  %5 = icmp ne i16 %4, 5
  br i1 %5, label %if.then4, label %if.end4

if.then4:
  %6 = load %struct.traffic__Crossing*, %struct.traffic__Crossing** %crossing.addr
  %7 = getelementptr inbounds %struct.traffic__Crossing, %struct.traffic__Crossing* %6, i32 0, i32 2
  store i8 1, i8* %7
  %8 = load %struct.traffic__Crossing*, %struct.traffic__Crossing** %crossing.addr
  %9 = getelementptr inbounds %struct.traffic__Crossing, %struct.traffic__Crossing* %8, i32 0, i32 0
  %10 = load i16, i16* %9
  %11 = icmp eq i16 %10, 1
  br i1 %11, label %land.lhs.true6, label %if.end5

land.lhs.true6:
  %12 = load %struct.traffic__Crossing*, %struct.traffic__Crossing** %crossing.addr
  %13 = getelementptr inbounds %struct.traffic__Crossing, %struct.traffic__Crossing* %12, i32 0, i32 1
  %14 = load i16, i16* %13
  %15 = icmp sgt i16 %14, 5
  br i1 %15, label %if.then5, label %if.end5

if.then5:
  %16 = load %struct.traffic__Crossing*, %struct.traffic__Crossing** %crossing.addr
  %17 = getelementptr inbounds %struct.traffic__Crossing, %struct.traffic__Crossing* %16, i32 0, i32 1
  store i16 5, i16* %17
  br label %if.end5

if.end5:
  br label %if.end4

if.end4:
  br label %sw.epilog0

sw.bb3:
  %18 = load %struct.traffic__Crossing*, %struct.traffic__Crossing** %crossing.addr
  %19 = getelementptr inbounds %struct.traffic__Crossing, %struct.traffic__Crossing* %18, i32 0, i32 3
  %20 = load i8, i8* %19
  %21 = trunc i8 %20 to i1
  %22 = icmp eq i1 %21, false
  %23 = zext i1 %22 to i8
  %24 = load %struct.traffic__Crossing*, %struct.traffic__Crossing** %crossing.addr
  %25 = getelementptr inbounds %struct.traffic__Crossing, %struct.traffic__Crossing* %24, i32 0, i32 3
  store i8 %23, i8* %25
  br label %sw.epilog0

sw.default0:
  %26 = load %struct.traffic__Crossing*, %struct.traffic__Crossing** %crossing.addr
  call void @_ZN7trafficL5enterERNS_8CrossingENS_5StateE(%struct.traffic__Crossing* %26, i16 0)
  br label %sw.epilog0

sw.epilog0:
  ret void
}

define internal void @_ZN7trafficL4stepERNS_8CrossingE(%struct.traffic__Crossing* %crossing) {
entry:
  %crossing.addr = alloca %struct.traffic__Crossing*
  %0 = load %struct.traffic__Crossing*, %struct.traffic__Crossing** %crossing.addr
  %1 = getelementptr inbounds %struct.traffic__Crossing, %struct.traffic__Crossing* %0, i32 0, i32 1
  %2 = load i16, i16* %1
  %3 = add i16 %2, -1
  %4 = load %struct.traffic__Crossing*, %struct.traffic__Crossing** %crossing.addr
  %5 = getelementptr inbounds %struct.traffic__Crossing, %struct.traffic__Crossing* %4, i32 0, i32 1
  store i16 %3, i16* %5
  %6 = icmp sgt i16 %3, 0
  br i1 %6, label %if.then0, label %if.end0

if.then0:
  ret void

if.end0:
  %7 = load %struct.traffic__Crossing*, %struct.traffic__Crossing** %crossing.addr
  %8 = load %struct.traffic__Crossing*, %struct.traffic__Crossing** %crossing.addr
  %9 = getelementptr inbounds %struct.traffic__Crossing, %struct.traffic__Crossing* %8, i32 0, i32 0
  %10 = load i16, i16* %9
  %11 = getelementptr inbounds [6 x %struct.traffic__Phase], [6 x %struct.traffic__Phase]* @_ZN7trafficL6phasesE, i16 0, i16 %10
  %12 = getelementptr inbounds %struct.traffic__Phase, %struct.traffic__Phase* %11, i32 0, i32 2
  %13 = load i16 (%struct.traffic__Crossing*)*, i16 (%struct.traffic__Crossing*)** %12
  %14 = load %struct.traffic__Crossing*, %struct.traffic__Crossing** %crossing.addr
  %15 = call i16 %13(%struct.traffic__Crossing* %14)
  call void @_ZN7trafficL5enterERNS_8CrossingENS_5StateE(%struct.traffic__Crossing* %7, i16 %15)
  ret void
}

define internal void @_ZN7trafficL5enterERNS_8CrossingENS_5StateE(%struct.traffic__Crossing* %crossing, i16 %state) {
entry:
  %crossing.addr = alloca %struct.traffic__Crossing*
  %state.addr = alloca i16
  %0 = load i16, i16* %state.addr
  %1 = icmp eq i16 %0, 0
  br i1 %1, label %if.then0, label %if.end0

if.then0:
  %2 = load %struct.traffic__Crossing*, %struct.traffic__Crossing** %crossing.addr
  %3 = getelementptr inbounds %struct.traffic__Crossing, %struct.traffic__Crossing* %2, i32 0, i32 4
  %4 = load i16, i16* %3
  %5 = add i16 %4, 1
  %6 = load %struct.traffic__Crossing*, %struct.traffic__Crossing** %crossing.addr
  %7 = getelementptr inbounds %struct.traffic__Crossing, %struct.traffic__Crossing* %6, i32 0, i32 4
  store i16 %5, i16* %7
  br label %if.end0

if.end0:
  %8 = load i16, i16* %state.addr
  %9 = icmp eq i16 %8, 5
  br i1 %9, label %if.then1, label %if.end1

if.then1:
  %10 = load %struct.traffic__Crossing*, %struct.traffic__Crossing** %crossing.addr
  %11 = getelementptr inbounds %struct.traffic__Crossing, %struct.traffic__Crossing* %10, i32 0, i32 2
  store i8 0, i8* %11
  br label %if.end1

if.end1:
  %12 = load i16, i16* %state.addr
  %13 = load %struct.traffic__Crossing*, %struct.traffic__Crossing** %crossing.addr
  %14 = getelementptr inbounds %struct.traffic__Crossing, %struct.traffic__Crossing* %13, i32 0, i32 0
  store i16 %12, i16* %14
  %15 = load i16, i16* %state.addr
  %16 = getelementptr inbounds [6 x %struct.traffic__Phase], [6 x %struct.traffic__Phase]* @_ZN7trafficL6phasesE, i16 0, i16 %15
  %17 = getelementptr inbounds %struct.traffic__Phase, %struct.traffic__Phase* %16, i32 0, i32 1
  %18 = load i16, i16* %17
  %19 = load %struct.traffic__Crossing*, %struct.traffic__Crossing** %crossing.addr
  %20 = getelementptr inbounds %struct.traffic__Crossing, %struct.traffic__Crossing* %19, i32 0, i32 1
  store i16 %18, i16* %20
  %21 = load %struct.traffic__Crossing*, %struct.traffic__Crossing** %crossing.addr
  %22 = getelementptr inbounds %struct.traffic__Crossing, %struct.traffic__Crossing* %21, i32 0, i32 3
  %23 = load i8, i8* %22
  %24 = trunc i8 %23 to i1
  br i1 %24, label %land.lhs.true3, label %if.end2

land.lhs.true3:
  %25 = load %struct.traffic__Crossing*, %struct.traffic__Crossing** %crossing.addr
  %26 = getelementptr inbounds %struct.traffic__Crossing, %struct.traffic__Crossing* %25, i32 0, i32 1
  %27 = load i16, i16* %26
  %28 = icmp sgt i16 %27, 10
  br i1 %28, label %if.then2, label %if.end2

if.then2:
  %29 = load %struct.traffic__Crossing*, %struct.traffic__Crossing** %crossing.addr
  %30 = getelementptr inbounds %struct.traffic__Crossing, %struct.traffic__Crossing* %29, i32 0, i32 1
  store i16 10, i16* %30
  br label %if.end2

if.end2:
  ret void
}

define zeroext i8 @lamps() {
entry:
  %0 = load i16, i16* getelementptr (%struct.traffic__Crossing, %struct.traffic__Crossing* @_ZL8crossing, i32 0, i32 0)
  %1 = getelementptr inbounds [6 x %struct.traffic__Phase], [6 x %struct.traffic__Phase]* @_ZN7trafficL6phasesE, i16 0, i16 %0
  %2 = getelementptr inbounds %struct.traffic__Phase, %struct.traffic__Phase* %1, i32 0, i32 0
  %3 = load i8, i8* %2
  ret i8 %3
}

define void @simulate(i8* %events) {
entry:
  %events.addr = alloca i8*
  %c = alloca i8
  %event = alloca i16
  br label %for.cond0

for.cond0:
  br label %n.1

n.1:
  %0 = load i8*, i8** %events.addr
  %incdec.ptr.0 = getelementptr inbounds i8, i8* %0, i32 1
  store i8* %incdec.ptr.0, i8** %events.addr
  %1 = load i8, i8* %0
  store i8 %1, i8* %c
  %2 = load i8, i8* %c
  %3 = icmp eq i8 %2, 0
  br i1 %3, label %if.then2, label %if.end2

if.then2:
  br label %for.end0

if.end2:
  store i16 0, i16* %event
  %4 = load i8, i8* %c
  %5 = sext i8 %4 to i16
  %6 = icmp eq i16 %5, 98
  br i1 %6, label %if.then3, label %if.else3

if.then3:
  store i16 1, i16* %event
  br label %if.end3

if.else3:
  %7 = load i8, i8* %c
  %8 = sext i8 %7 to i16
  %9 = icmp eq i16 %8, 110
  br i1 %9, label %if.then4, label %if.else4

if.then4:
  store i16 2, i16* %event
  br label %if.end4

if.else4:
  %10 = load i8, i8* %c
  %11 = sext i8 %10 to i16
  %12 = icmp eq i16 %11, 33
  br i1 %12, label %if.then5, label %if.end5

if.then5:
  store i16 3, i16* %event
  br label %if.end5

if.end5:
  br label %if.end4

if.end4:
  br label %if.end3

if.end3:
  %13 = load i16, i16* %event
  call void @_ZN7traffic6handleERNS_8CrossingENS_5EventE(%struct.traffic__Crossing* @_ZL8crossing, i16 %13)
  br label %for.inc0

for.inc0:
  br label %for.cond0

for.end0:
  ret void
}

define internal i16 @_ZN7trafficL9after_redERKNS_8CrossingE(%struct.traffic__Crossing* %crossing) {
entry:
  %crossing.addr = alloca %struct.traffic__Crossing*
  %0 = load %struct.traffic__Crossing*, %struct.traffic__Crossing** %crossing.addr
  %1 = getelementptr inbounds %struct.traffic__Crossing, %struct.traffic__Crossing* %0, i32 0, i32 2
  %2 = load i8, i8* %1
  %3 = trunc i8 %2 to i1
  %4 = select i1 %3, i16 5, i16 1
  ret i16 %4
}

define internal i16 @_ZN7trafficL11after_northERKNS_8CrossingE(%struct.traffic__Crossing* %_unused0_) {
entry:
  %_unused0_.addr = alloca %struct.traffic__Crossing*
  ret i16 2
}

define internal i16 @_ZN7trafficL18after_north_yellowERKNS_8CrossingE(%struct.traffic__Crossing* %_unused0_) {
entry:
  %_unused0_.addr = alloca %struct.traffic__Crossing*
  ret i16 3
}

define internal i16 @_ZN7trafficL10after_eastERKNS_8CrossingE(%struct.traffic__Crossing* %_unused0_) {
entry:
  %_unused0_.addr = alloca %struct.traffic__Crossing*
  ret i16 4
}

define internal i16 @_ZN7trafficL6to_redERKNS_8CrossingE(%struct.traffic__Crossing* %_unused0_) {
entry:
  %_unused0_.addr = alloca %struct.traffic__Crossing*
  ret i16 0
}

